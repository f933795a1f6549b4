#include "plot_template_item.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

namespace rviz_plugin {

PlotTemplateItem::PlotTemplateItem(const QString& icon, const QString& text, QWidget* parent) : QWidget(parent)
{
    setObjectName("plotTemplateItem");
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(height);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 0, 10, 0);
    iconLabel = new QLabel(this);
    iconLabel->setFixedSize(16, 16);
    textLabel = new QLabel(text, this);
    layout->addWidget(iconLabel);
    layout->addWidget(textLabel, 1);
    SetIcon(icon);
    SetBackground("transparent");
}

void PlotTemplateItem::SetText(const QString& text)
{
    textLabel->setText(text);
    templateData.templateName = text;
}

QString PlotTemplateItem::GetText() const
{
    return textLabel->text();
}

void PlotTemplateItem::SetIcon(const QString& icon)
{
    iconLabel->setPixmap(QPixmap(icon).scaled(16, 16, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void PlotTemplateItem::SetItemEnabled(bool itemEnabled)
{
    enabled = itemEnabled;
    textLabel->setStyleSheet(QString("color:%1;").arg(enabled ? "#0F0F0F" : "#CCCCCC"));
}

void PlotTemplateItem::SetBackground(const QString& color)
{
    setStyleSheet(QString("QWidget#plotTemplateItem {background:%1;}").arg(color));
}

void PlotTemplateItem::enterEvent(QEvent* event)
{
    if (enabled) {
        SetBackground("#FFCFB3");
    }
    QWidget::enterEvent(event);
}

void PlotTemplateItem::leaveEvent(QEvent* event)
{
    SetBackground("transparent");
    QWidget::leaveEvent(event);
}

void PlotTemplateItem::mousePressEvent(QMouseEvent* event)
{
    if (enabled && event->button() == Qt::LeftButton) {
        Q_EMIT SignalClicked(this);
        return;
    }
    QWidget::mousePressEvent(event);
}

} // namespace rviz_plugin

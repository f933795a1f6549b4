#include "plot_item.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

namespace rviz_plugin {

PlotItem::PlotItem(int itemIndex, const QString& title, QWidget* parent) : PlotItem(itemIndex, title, {}, {}, parent) {}

PlotItem::PlotItem(int itemIndex, const QString& title, const QString& type, const QString& color, QWidget* parent)
    : QWidget(parent), index(itemIndex)
{
    setObjectName("plotItem");
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(height);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 8, 0);
    titleLabel = new QLabel(title, this);
    titleLabel->setStyleSheet("color:#0F0F0F;");
    layout->addWidget(titleLabel, 1);
    if (!type.isEmpty()) {
        typeLabel = new QLabel(type, this);
        typeLabel->setStyleSheet(QString("color:%1;").arg(color.isEmpty() ? "#999999" : color));
        layout->addWidget(typeLabel);
    }
    SetBackground("transparent");
}

void PlotItem::SetBackground(const QString& color)
{
    setStyleSheet(QString("QWidget#plotItem {background:%1;}").arg(color));
}

void PlotItem::SetDisabled(bool isDisabled)
{
    disabled = isDisabled;
    titleLabel->setStyleSheet(QString("color:%1;").arg(disabled ? "#CCCCCC" : "#0F0F0F"));
}

QString PlotItem::GetTitle() const
{
    return titleLabel->text();
}

void PlotItem::enterEvent(QEvent* event)
{
    if (!disabled) {
        SetBackground("#FFCFB3");
    }
    QWidget::enterEvent(event);
}

void PlotItem::leaveEvent(QEvent* event)
{
    SetBackground("transparent");
    QWidget::leaveEvent(event);
}

void PlotItem::mousePressEvent(QMouseEvent* event)
{
    if (!disabled && event->button() == Qt::LeftButton) {
        Q_EMIT SignalItemClicked(index, GetTitle());
        return;
    }
    QWidget::mousePressEvent(event);
}

} // namespace rviz_plugin

#include "tips_center_widget.h"

#include <QHBoxLayout>
#include <QLabel>

namespace rviz_plugin {

TipsCenterWidget::TipsCenterWidget(QWidget* parent) : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint)
{
    setObjectName("TipsCenterWidget");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setStyleSheet("#TipsCenterWidget { background-color: #2B2B2B; border: 1px solid #555555; }"
                  "QLabel { color: #FFFFFF; padding: 12px; }");
    label = new QLabel(this);
    label->setWordWrap(true);
    label->setMaximumWidth(520);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    hideTimer.setSingleShot(true);
    hideTimer.setInterval(finalMessageTime);
    connect(&hideTimer, &QTimer::timeout, this, &QWidget::hide);
}

void TipsCenterWidget::ShowText(const QString& text)
{
    label->setText(text);
    adjustSize();
    if (parentWidget() != nullptr) {
        const QWidget* window = parentWidget()->window();
        move(window->mapToGlobal(window->rect().center()) - rect().center());
    }
    show();
    raise();
}

void TipsCenterWidget::ShowProgress(const QString& text)
{
    hideTimer.stop();
    ShowText(text);
}

void TipsCenterWidget::ShowFinal(const QString& text)
{
    ShowText(text);
    hideTimer.start();
}

QString TipsCenterWidget::GetText() const
{
    return label->text();
}

} // namespace rviz_plugin

#include "plot_more_widget.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
const char* const iconPath = ":/plotqrc/assets/image/";
}

PlotMoreWidget::PlotMoreWidget(QWidget* parent) : QWidget(parent, Qt::Popup)
{
    setObjectName("plotMoreWidget");
    setAttribute(Qt::WA_StyledBackground);
    setFixedWidth(menuWidth);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 4);
    layout->setSpacing(0);
    splitHorizontal = AddItem("Split Horizontal", "split_horizontal.png");
    splitVertical = AddItem("Split Vertical", "split_vertical.png");
    maximize = AddItem("Maximize", "maximize.png");
    remove = AddItem("Remove Plot", "remove.png");
    connect(splitHorizontal, &QPushButton::clicked, this, [this]() {
        hide();
        Q_EMIT SignalSplit(Qt::Horizontal);
    });
    connect(splitVertical, &QPushButton::clicked, this, [this]() {
        hide();
        Q_EMIT SignalSplit(Qt::Vertical);
    });
    connect(maximize, &QPushButton::clicked, this, [this]() {
        hide();
        Q_EMIT SignalMaximize(!isMaximize);
    });
    connect(remove, &QPushButton::clicked, this, [this]() {
        hide();
        Q_EMIT SignalRemovePlot();
    });
    setStyleSheet("QWidget#plotMoreWidget {background:#FFFFFF; border:1px solid #E2E2E2;}"
                  "QPushButton {text-align:left; padding-left:12px; border:none; background:transparent;}"
                  "QPushButton:hover {background:#FFCFB3;} QPushButton:disabled {color:#CCCCCC;}");
    setFixedHeight(4 * itemHeight + 8);
}

QPushButton* PlotMoreWidget::AddItem(const QString& text, const QString& icon)
{
    auto* item = new QPushButton(QIcon(iconPath + icon), text, this);
    item->setObjectName(text);
    item->setFixedHeight(itemHeight);
    layout()->addWidget(item);
    return item;
}

QPushButton* PlotMoreWidget::GetItem(const QString& text) const
{
    for (QPushButton* item : {splitHorizontal, splitVertical, maximize, remove}) {
        if (item->text() == text) {
            return item;
        }
    }
    return nullptr;
}

void PlotMoreWidget::SetMaximize(bool max)
{
    isMaximize = max;
    maximize->setText(max ? "Restore Window Size" : "Maximize");
    maximize->setIcon(QIcon(QString(iconPath) + (max ? "restore.png" : "maximize.png")));
    UpdateEnabled();
}

void PlotMoreWidget::SetSplitItemDisabled(bool disabled)
{
    splitDisabled = disabled;
    UpdateEnabled();
}

void PlotMoreWidget::SetRemoveItemDisabled(bool disabled)
{
    removeDisabled = disabled;
    UpdateEnabled();
}

void PlotMoreWidget::UpdateEnabled()
{
    splitHorizontal->setEnabled(!splitDisabled && !isMaximize);
    splitVertical->setEnabled(!splitDisabled && !isMaximize);
    remove->setEnabled(!removeDisabled && !isMaximize);
}

} // namespace rviz_plugin

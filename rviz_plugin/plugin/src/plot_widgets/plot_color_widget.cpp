#include "plot_color_widget.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

PlotColorWidget::PlotColorWidget(const QColor& startColor, QWidget* parent)
    : QWidget(parent, Qt::Tool), initialColor(startColor), color(startColor)
{
    setWindowTitle("Color");
    auto* layout = new QVBoxLayout(this);
    picker = new QColorDialog(startColor, this);
    picker->setOptions(QColorDialog::NoButtons | QColorDialog::DontUseNativeDialog);
    picker->setWindowFlags(Qt::Widget);
    layout->addWidget(picker);
    auto* buttons = new QHBoxLayout();
    auto* reset = new QPushButton("Reset", this);
    auto* cancel = new QPushButton("Cancel", this);
    auto* confirm = new QPushButton("Confirm", this);
    buttons->addWidget(reset);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(confirm);
    layout->addLayout(buttons);
    connect(picker, &QColorDialog::currentColorChanged, this, &PlotColorWidget::OnColorChanged);
    connect(reset, &QPushButton::clicked, this, &PlotColorWidget::OnResetBtnClicked);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    connect(confirm, &QPushButton::clicked, this, &PlotColorWidget::OnConfirmBtnClicked);
}

void PlotColorWidget::OnColorChanged(const QColor& newColor)
{
    color = newColor;
}

void PlotColorWidget::OnConfirmBtnClicked()
{
    Q_EMIT SignalSelectedColor(color);
    close();
}

void PlotColorWidget::OnResetBtnClicked()
{
    picker->setCurrentColor(initialColor);
    color = initialColor;
}

void PlotColorWidget::closeEvent(QCloseEvent* event)
{
    Q_EMIT SignalCloseWin();
    QWidget::closeEvent(event);
}

} // namespace rviz_plugin

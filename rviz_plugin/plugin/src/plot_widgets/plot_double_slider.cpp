#include "plot_double_slider.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace rviz_plugin {

PlotDoubleSlider::PlotDoubleSlider(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(16);
    setMouseTracking(false);
}

void PlotDoubleSlider::SetRange(double minimum, double maximum)
{
    rangeMin = minimum;
    rangeMax = std::max(maximum, minimum);
    UpdateRects();
    update();
}

void PlotDoubleSlider::SetValues(double minimum, double maximum)
{
    valueMin = std::clamp(minimum, rangeMin, rangeMax);
    valueMax = std::clamp(maximum, valueMin, rangeMax);
    UpdateRects();
    update();
}

double PlotDoubleSlider::PositionOf(double value) const
{
    const double span = rangeMax - rangeMin;
    const double usable = std::max(1, width() - 2 * handleWidth);
    return handleWidth + (span > 0.0 ? (value - rangeMin) / span : 0.0) * usable;
}

double PlotDoubleSlider::ValueAt(double x) const
{
    const double usable = std::max(1, width() - 2 * handleWidth);
    const double fraction = std::clamp((x - handleWidth) / usable, 0.0, 1.0);
    return rangeMin + fraction * (rangeMax - rangeMin);
}

void PlotDoubleSlider::UpdateRects()
{
    const double minX = PositionOf(valueMin);
    const double maxX = PositionOf(valueMax);
    minHandle = QRectF(minX - handleWidth, 0, handleWidth, height());
    maxHandle = QRectF(maxX, 0, handleWidth, height());
    bar = QRectF(minX, height() / 2.0 - 3, std::max(0.0, maxX - minX), 6);
}

void PlotDoubleSlider::paintEvent(QPaintEvent*)
{
    UpdateRects();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor("#F4F4F4"));
    painter.drawRoundedRect(QRectF(handleWidth, height() / 2.0 - 3, width() - 2 * handleWidth, 6), 3, 3);
    painter.setBrush(QColor("#1E5EFF"));
    painter.drawRect(bar);
    painter.setBrush(QColor("#93AEF2"));
    painter.drawRoundedRect(minHandle, 2, 2);
    painter.drawRoundedRect(maxHandle, 2, 2);
}

void PlotDoubleSlider::mousePressEvent(QMouseEvent* event)
{
    UpdateRects();
    const QPointF pos = event->localPos();
    isPressed = true;
    pressX = pos.x();
    pressMin = valueMin;
    pressMax = valueMax;
    if (minHandle.contains(pos)) {
        pressedHandle = MinimumHandle;
    } else if (maxHandle.contains(pos)) {
        pressedHandle = MaximumHandle;
    } else if (bar.adjusted(0, -4, 0, 4).contains(pos)) {
        pressedHandle = BarHandle;
    } else {
        const bool nearerMin = std::abs(pos.x() - minHandle.right()) <= std::abs(pos.x() - maxHandle.left());
        pressedHandle = nearerMin ? MinimumHandle : MaximumHandle;
        if (nearerMin) {
            MoveMin(ValueAt(pos.x()));
        } else {
            MoveMax(ValueAt(pos.x()));
        }
    }
}

void PlotDoubleSlider::mouseMoveEvent(QMouseEvent* event)
{
    const double x = event->localPos().x();
    switch (pressedHandle) {
    case MinimumHandle:
        MoveMin(ValueAt(x));
        break;
    case MaximumHandle:
        MoveMax(ValueAt(x));
        break;
    case BarHandle: {
        const double shift = ValueAt(x) - ValueAt(pressX);
        const double span = pressMax - pressMin;
        const double low = std::clamp(pressMin + shift, rangeMin, rangeMax - span);
        MoveMin(low);
        MoveMax(low + span);
        break;
    }
    default:
        break;
    }
}

void PlotDoubleSlider::mouseReleaseEvent(QMouseEvent*)
{
    isPressed = false;
    pressedHandle = NoHandle;
}

void PlotDoubleSlider::MoveMin(double value)
{
    value = std::clamp(value, rangeMin, valueMax);
    if (value == valueMin) {
        return;
    }
    valueMin = value;
    isSliderMoved = true;
    Q_EMIT SignalSliderMoved(true);
    Q_EMIT SliderMinValueChanged(value);
    update();
}

void PlotDoubleSlider::MoveMax(double value)
{
    value = std::clamp(value, valueMin, rangeMax);
    if (value == valueMax) {
        return;
    }
    valueMax = value;
    isSliderMoved = true;
    Q_EMIT SignalSliderMoved(true);
    Q_EMIT SliderMaxValueChanged(value);
    update();
}

} // namespace rviz_plugin

#include "plot_magnifier.h"

#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>

#include <QWheelEvent>

#include <cmath>

namespace rviz_plugin {

PlotMagnifier::PlotMagnifier(QWidget* canvas) : QwtPlotMagnifier(canvas)
{
    setMouseButton(Qt::NoButton);
}

void PlotMagnifier::widgetWheelEvent(QWheelEvent* event)
{
    Rescale(event);
    Q_EMIT SignalRescale(event);
    lastPosition = event->position().toPoint();
    Q_EMIT SignalRescaled();
}

void PlotMagnifier::Rescale(QWheelEvent* event)
{
    if (event->modifiers() != wheelModifiers() || wheelFactor() == 0.0) {
        return;
    }
    const int angle = event->angleDelta().y();
    RescaleByDelta(angle, event->position().toPoint());
    delta += angle;
}

void PlotMagnifier::RescaleByDelta(int angleDelta, const QPoint& pos)
{
    const double steps = static_cast<double>(angleDelta) / wheelDelta;
    double factor = std::pow(wheelFactor(), std::abs(steps));
    if (angleDelta < 0) {
        factor = 1.0 / factor;
    }
    Rescale(factor, pos);
}

void PlotMagnifier::Rescale(double factor, const QPoint& pos)
{
    QwtPlot* target = plot();
    factor = std::abs(factor);
    if (target == nullptr || factor == 0.0 || factor == 1.0) {
        return;
    }
    const bool autoReplot = target->autoReplot();
    target->setAutoReplot(false);
    const QWidget* canvasWidget = canvas();
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        if (!target->axisEnabled(axis) || !isAxisEnabled(axis)) {
            continue;
        }
        const QwtScaleMap map = target->canvasMap(axis);
        const double lower = map.transform(target->axisScaleDiv(axis).lowerBound());
        const double upper = map.transform(target->axisScaleDiv(axis).upperBound());
        if (!initialRanges.contains(axis) && delta == 0 && lastPosition.isNull()) {
            initialRanges[axis] =
                qMakePair(target->axisScaleDiv(axis).lowerBound(), target->axisScaleDiv(axis).upperBound());
        }
        // The point under the cursor, in pixels along the axis.
        const bool horizontal = axis == QwtPlot::xBottom || axis == QwtPlot::xTop;
        const double fraction = horizontal ? static_cast<double>(pos.x()) / std::max(1, canvasWidget->width())
                                           : 1.0 - static_cast<double>(pos.y()) / std::max(1, canvasWidget->height());
        const double p = map.invTransform(lower + fraction * (upper - lower));
        const double low = target->axisScaleDiv(axis).lowerBound();
        const double high = target->axisScaleDiv(axis).upperBound();
        target->setAxisScale(axis, p - (p - low) * factor, p + (high - p) * factor);
    }
    target->setAutoReplot(autoReplot);
    target->replot();
}

void PlotMagnifier::Restore()
{
    QwtPlot* target = plot();
    if (target != nullptr) {
        for (auto it = initialRanges.begin(); it != initialRanges.end(); ++it) {
            target->setAxisScale(it.key(), it.value().first, it.value().second);
        }
    }
    initialRanges.clear();
    delta = 0;
    lastPosition = QPoint();
}

} // namespace rviz_plugin

#include "plot_picker.h"

#include "plot_curve.h"

#include <qwt_picker_machine.h>
#include <qwt_plot.h>

#include <QMouseEvent>

namespace rviz_plugin {

PlotPicker::PlotPicker(QWidget* canvas)
    : QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::UserRubberBand, QwtPicker::AlwaysOn, canvas)
{
    setStateMachine(new QwtPickerDragPointMachine());
}

void PlotPicker::widgetMouseMoveEvent(QMouseEvent* event)
{
    CalcClosestPoint(event->pos());
    QwtPlotPicker::widgetMouseMoveEvent(event);
}

void PlotPicker::CalcClosestPoint(const QPoint& pos)
{
    values.clear();
    const QwtPlot* target = plot();
    if (target == nullptr) {
        return;
    }
    const QwtScaleMap xMap = target->canvasMap(QwtPlot::xBottom);
    const QwtScaleMap yMap = target->canvasMap(QwtPlot::yLeft);
    for (const QwtPlotItem* item : target->itemList(QwtPlotItem::Rtti_PlotCurve)) {
        const auto* curve = dynamic_cast<const PlotCurve*>(item);
        if (curve == nullptr || curve->isTimeLine || !curve->isVisible()) {
            continue;
        }
        const int index = curve->ClosestSample(pos, xMap, yMap);
        if (index >= 0) {
            values[curve->name] = curve->Series().Point(static_cast<std::size_t>(index)).y();
        }
    }
}

QwtText PlotPicker::trackerTextF(const QPointF&) const
{
    if (!isVisible || values.isEmpty()) {
        return QwtText();
    }
    QString text;
    for (auto it = values.begin(); it != values.end(); ++it) {
        text += QString("%1 : %2\n").arg(it.key()).arg(QString::asprintf("%.2f", it.value()));
    }
    text.chop(1);
    QwtText tracker(text);
    tracker.setColor(Qt::black);
    tracker.setBackgroundBrush(QColor("#E6E6E6"));
    tracker.setBorderRadius(2);
    return tracker;
}

} // namespace rviz_plugin

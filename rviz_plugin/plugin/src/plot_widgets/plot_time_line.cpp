#include "plot_time_line.h"

#include <QPen>

namespace rviz_plugin {

PlotTimeLine::PlotTimeLine() : PlotCurve("timeLine")
{
    isTimeLine = true;
    setPen(QPen(QColor("#FD4F4F"), 1));
    setItemAttribute(QwtPlotItem::AutoScale, false);
    setVisible(false);
}

void PlotTimeLine::SetLine(double x, double low, double high)
{
    Series().Clear();
    Series().Append({QPointF(x, low), QPointF(x, high)}, {x, x});
    SamplesChanged();
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_PLOT_TIME_LINE_H
#define RVIZ_PLUGIN_PLOT_TIME_LINE_H

#include "plot_curve.h"

namespace rviz_plugin {

// The vertical line under the cursor, across the canvas.
class PlotTimeLine : public PlotCurve {
public:
    PlotTimeLine();
    // The line at x, from low to high on the y axis.
    void SetLine(double x, double low, double high);
};

} // namespace rviz_plugin

#endif

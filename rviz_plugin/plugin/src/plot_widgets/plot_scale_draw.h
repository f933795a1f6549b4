#ifndef RVIZ_PLUGIN_PLOT_SCALE_DRAW_H
#define RVIZ_PLUGIN_PLOT_SCALE_DRAW_H

#include <qwt_scale_draw.h>

namespace rviz_plugin {

// Axis labels with two decimals in grey "Ubuntu" 10, a light backbone, no ticks. The x axis cuts a
// label to the room a major tick has.
class PlotScaleDraw : public QwtScaleDraw {
public:
    explicit PlotScaleDraw(Alignment alignment);
    QwtText label(double value) const override;

protected:
    void drawLabel(QPainter* painter, double value) const override;
    void drawBackbone(QPainter* painter) const override;
    void drawTick(QPainter* painter, double value, double length) const override;

private:
    Alignment alignment;
};

} // namespace rviz_plugin

#endif

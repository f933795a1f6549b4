#ifndef RVIZ_PLUGIN_PLOT_CURVE_H
#define RVIZ_PLUGIN_PLOT_CURVE_H

#include "plot_data/plot_series.h"

#include <qwt_plot_curve.h>

#include <QString>

#include <memory>

namespace rviz_plugin {

// A line of a plot, drawing its own samples. A pixel column gets at most four vertices (the first,
// lowest, highest and last sample in it), and a series sorted by x draws only the samples in view,
// so the cost of a replot follows the canvas width, not the number of samples. Samples that are not
// finite are not drawn: the line breaks there.
class PlotCurve : public QwtPlotCurve {
public:
    explicit PlotCurve(const QString& name = QString());

    PlotSeries& Series() { return *series; }
    const PlotSeries& Series() const { return *series; }
    // After the samples changed: tells Qwt, and puts a dot on a curve of one point.
    void SamplesChanged();
    void UpdateSymbol();
    // The sample nearest to x (a sorted series) or to the point pos in pixels; -1 without samples.
    int ClosestSample(const QPointF& pos, const QwtScaleMap& xMap, const QwtScaleMap& yMap) const;

    bool isTimeLine = false;
    QString name;

protected:
    void drawLines(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect,
                   int from, int to) const override;

private:
    std::shared_ptr<PlotSeries> series;
};

} // namespace rviz_plugin

#endif

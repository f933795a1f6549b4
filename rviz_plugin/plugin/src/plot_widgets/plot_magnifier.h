#ifndef RVIZ_PLUGIN_PLOT_MAGNIFIER_H
#define RVIZ_PLUGIN_PLOT_MAGNIFIER_H

#include <qwt_plot_magnifier.h>

#include <QMap>
#include <QObject>
#include <QPair>
#include <QPoint>

class QWheelEvent;

namespace rviz_plugin {

// Wheel zoom about the point under the cursor; the ranges before the first step can be restored.
class PlotMagnifier : public QwtPlotMagnifier {
    Q_OBJECT
public:
    static constexpr int wheelDelta = 120;
    explicit PlotMagnifier(QWidget* canvas);

    // Zooms as the wheel event asks (without emitting anything).
    void Rescale(QWheelEvent* event);
    void RescaleByDelta(int angleDelta, const QPoint& pos);
    void Rescale(double factor, const QPoint& pos);
    void Restore();
    bool IsRescaled() const { return delta != 0; }
    int GetDelta() const { return delta; }
    void SetDelta(int value) { delta = value; }
    void SetLastPosition(const QPoint& pos) { lastPosition = pos; }
    QPoint GetLastPosition() const { return lastPosition; }

Q_SIGNALS:
    void SignalRescale(QWheelEvent* event);
    void SignalRescaled();

protected:
    void widgetWheelEvent(QWheelEvent* event) override;

private:
    int delta = 0;
    QPoint lastPosition;
    QMap<int, QPair<double, double>> initialRanges;
};

} // namespace rviz_plugin

#endif

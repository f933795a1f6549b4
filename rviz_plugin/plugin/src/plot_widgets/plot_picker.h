#ifndef RVIZ_PLUGIN_PLOT_PICKER_H
#define RVIZ_PLUGIN_PLOT_PICKER_H

#include <qwt_plot_picker.h>

#include <QMap>
#include <QString>

namespace rviz_plugin {

// The tracker: for each line, the value of its sample nearest the cursor.
class PlotPicker : public QwtPlotPicker {
    Q_OBJECT
public:
    explicit PlotPicker(QWidget* canvas);

    void SetVisible(bool visible) { isVisible = visible; }
    void CalcClosestPoint(const QPoint& pos);
    const QMap<QString, double>& GetValues() const { return values; }
    QwtText trackerTextF(const QPointF& pos) const override;

protected:
    void widgetMouseMoveEvent(QMouseEvent* event) override;

private:
    bool isVisible = true;
    QMap<QString, double> values;
};

} // namespace rviz_plugin

#endif

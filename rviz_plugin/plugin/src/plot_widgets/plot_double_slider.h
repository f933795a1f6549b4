#ifndef RVIZ_PLUGIN_PLOT_DOUBLE_SLIDER_H
#define RVIZ_PLUGIN_PLOT_DOUBLE_SLIDER_H

#include <QRectF>
#include <QWidget>

namespace rviz_plugin {

// A range slider: two handles over a groove and the bar between them, which moves both.
class PlotDoubleSlider : public QWidget {
    Q_OBJECT
public:
    enum Handle { MinimumHandle = 0, MaximumHandle = 1, BarHandle = 2, NoHandle = 3 };
    static constexpr int handleWidth = 8;

    explicit PlotDoubleSlider(QWidget* parent = nullptr);

    // Silent: no signal.
    void SetRange(double minimum, double maximum);
    void SetValues(double minimum, double maximum);
    double GetRangeMin() const { return rangeMin; }
    double GetRangeMax() const { return rangeMax; }
    double GetValueMin() const { return valueMin; }
    double GetValueMax() const { return valueMax; }
    bool IsPressed() const { return isPressed; }
    bool IsSliderMoved() const { return isSliderMoved; }
    void SetSliderMoved(bool moved) { isSliderMoved = moved; }

Q_SIGNALS:
    void SliderMinValueChanged(double value);
    void SliderMaxValueChanged(double value);
    void SignalSliderMoved(bool moved);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void UpdateRects();
    double ValueAt(double x) const;
    double PositionOf(double value) const;
    void MoveMin(double value);
    void MoveMax(double value);

    double rangeMin = 0.0;
    double rangeMax = 10.0;
    double valueMin = 0.0;
    double valueMax = 10.0;
    QRectF minHandle;
    QRectF maxHandle;
    QRectF bar;
    int pressedHandle = NoHandle;
    bool isSliderMoved = false;
    bool isPressed = false;
    double pressX = 0.0;
    double pressMin = 0.0;
    double pressMax = 0.0;
};

} // namespace rviz_plugin

#endif

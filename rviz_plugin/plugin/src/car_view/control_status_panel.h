#ifndef RVIZ_PLUGIN_CONTROL_STATUS_PANEL_H
#define RVIZ_PLUGIN_CONTROL_STATUS_PANEL_H

#include "base_car_view.h"

// What the vehicle is told to do: arrows show whether brake and throttle rose or fell since the last
// paint, the selected gear sits on its plate, and only lit lamps are drawn.
class ControlStatusPanel : public BaseCarView {
    Q_OBJECT
public:
    explicit ControlStatusPanel(QWidget* parent = nullptr);
    using BaseCarView::UpdateValue;

protected:
    void DrawGuider(QPainter& painter, Bar& bar) override;
    void DrawWarnSignal(QPainter& painter) override;
    void DrawGearStyle(QPainter& painter, ValueState state, QRectF& rect, QString letter) override;

private:
    void UpdateValue(QPainter& painter, Bar& bar, double x, double y, double textY);
};

#endif

#ifndef RVIZ_PLUGIN_STATUS_VIEW_PANEL_H
#define RVIZ_PLUGIN_STATUS_VIEW_PANEL_H

#include "base_car_view.h"

// What the vehicle reports: guiders that follow the bars, both turn lamps always drawn.
class StatusViewPanel : public BaseCarView {
    Q_OBJECT
public:
    explicit StatusViewPanel(QWidget* parent = nullptr);

protected:
    void DrawGuider(QPainter& painter, Bar& bar) override;
    void DrawWarnSignal(QPainter& painter) override;
};

#endif

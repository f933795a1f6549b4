#ifndef RVIZ_PLUGIN_CAR_STATUS_VIEW_H
#define RVIZ_PLUGIN_CAR_STATUS_VIEW_H

#include "car_view_panel.h"

namespace rviz_plugin {

// The vehicle's reported state, from "TopicVehicleInfo".
class CarStatusView : public CarViewPanel {
    Q_OBJECT
public:
    explicit CarStatusView(QWidget* parent = nullptr);
};

} // namespace rviz_plugin

#endif

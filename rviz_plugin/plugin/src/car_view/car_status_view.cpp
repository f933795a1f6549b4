#include "car_status_view.h"

#include "status_view_panel.h"

namespace rviz_plugin {

CarStatusView::CarStatusView(QWidget* parent) : CarViewPanel("TopicVehicleInfo", new StatusViewPanel, parent)
{
}

} // namespace rviz_plugin

#include "traffic_elements_panel.h"

#include "traffic_elements_widget.h"
#include "vehicle_panels_logic/location_status_checker.h"
#include "vehicle_panels_logic/traffic_info_checker.h"

namespace rviz_plugin {

namespace {
constexpr uint32_t queueSize = 1000;
}

TrafficElementsPanel::TrafficElementsPanel(QWidget* parent)
    : VehiclePanel(parent), widget(new TrafficElementsWidget(this))
{
}

void TrafficElementsPanel::onInitialize()
{
    latestLocationStatus =
        Intake().Subscribe<custom::LocationStatus, LocationStatusChecker>("TopicLocationStatus", queueSize);
    latestTrafficInfo = Intake().Subscribe<custom::TrafficInfo, TrafficInfoChecker>("TopicTrafficInfo", queueSize);
    widget->ReadConf();
    qRegisterMetaType<custom::LocationStatus>("custom::LocationStatus");
    qRegisterMetaType<custom::TrafficInfo>("custom::TrafficInfo");
    connect(this, &TrafficElementsPanel::ValueLocationStatusChanged, widget,
            &TrafficElementsWidget::UpdateLocationStatusValue);
    connect(this, &TrafficElementsPanel::ValueTrafficInfoChanged, widget, &TrafficElementsWidget::UpdateTrafficInfoValue);
    SetUpPanel(widget, widget->minimumSize());
}

void TrafficElementsPanel::DeliverLatest()
{
    custom::LocationStatus status;
    if (latestLocationStatus && latestLocationStatus->Take(status)) {
        Q_EMIT ValueLocationStatusChanged(status);
    }
    custom::TrafficInfo info;
    if (latestTrafficInfo && latestTrafficInfo->Take(info)) {
        Q_EMIT ValueTrafficInfoChanged(info);
    }
}

} // namespace rviz_plugin

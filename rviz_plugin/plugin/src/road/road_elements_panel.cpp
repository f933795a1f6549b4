#include "road_elements_panel.h"

#include "road_elements_widget.h"
#include "vehicle_panels_logic/road_info_checker.h"

namespace rviz_plugin {

namespace {
constexpr uint32_t queueSize = 1000;
}

RoadElementsPanel::RoadElementsPanel(QWidget* parent) : VehiclePanel(parent), widget(new RoadElementsWidget(this))
{
}

void RoadElementsPanel::onInitialize()
{
    latestRoadInfo = Intake().Subscribe<custom::RoadInfo, RoadInfoChecker>("TopicRoadInfo", queueSize);
    widget->ReadConf();
    qRegisterMetaType<custom::RoadInfo>("custom::RoadInfo");
    connect(this, &RoadElementsPanel::ValueRoadInfoChanged, widget, &RoadElementsWidget::UpdateRoadInfoValue);
    SetUpPanel(widget, widget->minimumSize());
}

void RoadElementsPanel::DeliverLatest()
{
    custom::RoadInfo info;
    if (latestRoadInfo && latestRoadInfo->Take(info)) {
        Q_EMIT ValueRoadInfoChanged(info);
    }
}

} // namespace rviz_plugin

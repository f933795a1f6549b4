#ifndef RVIZ_PLUGIN_ROAD_ELEMENTS_PANEL_H
#define RVIZ_PLUGIN_ROAD_ELEMENTS_PANEL_H

#include "car_view/vehicle_panel.h"
#include "vehicle_panels_logic/latest_value_relay.h"

#include <custom/RoadInfo.h>

#include <memory>

Q_DECLARE_METATYPE(custom::RoadInfo)

namespace rviz_plugin {

class RoadElementsWidget;

// The road elements, from "TopicRoadInfo".
class RoadElementsPanel : public VehiclePanel {
    Q_OBJECT
public:
    explicit RoadElementsPanel(QWidget* parent = nullptr);

    void onInitialize() override;
    RoadElementsWidget* Widget() const { return widget; }

Q_SIGNALS:
    void ValueRoadInfoChanged(const custom::RoadInfo& info);

protected:
    void DeliverLatest() override;

private:
    RoadElementsWidget* widget;
    std::shared_ptr<LatestValueRelay<custom::RoadInfo>> latestRoadInfo;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_TRAFFIC_ELEMENTS_PANEL_H
#define RVIZ_PLUGIN_TRAFFIC_ELEMENTS_PANEL_H

#include "car_view/vehicle_panel.h"
#include "vehicle_panels_logic/latest_value_relay.h"

#include <custom/LocationStatus.h>
#include <custom/TrafficInfo.h>

#include <memory>

Q_DECLARE_METATYPE(custom::LocationStatus)
Q_DECLARE_METATYPE(custom::TrafficInfo)

namespace rviz_plugin {

class TrafficElementsWidget;

// Positioning and traffic elements, from "TopicLocationStatus" and "TopicTrafficInfo".
class TrafficElementsPanel : public VehiclePanel {
    Q_OBJECT
public:
    explicit TrafficElementsPanel(QWidget* parent = nullptr);

    void onInitialize() override;
    TrafficElementsWidget* Widget() const { return widget; }

Q_SIGNALS:
    void ValueLocationStatusChanged(const custom::LocationStatus& status);
    void ValueTrafficInfoChanged(const custom::TrafficInfo& info);

protected:
    void DeliverLatest() override;

private:
    TrafficElementsWidget* widget;
    std::shared_ptr<LatestValueRelay<custom::LocationStatus>> latestLocationStatus;
    std::shared_ptr<LatestValueRelay<custom::TrafficInfo>> latestTrafficInfo;
};

} // namespace rviz_plugin

#endif

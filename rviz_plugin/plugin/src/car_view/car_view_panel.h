#ifndef RVIZ_PLUGIN_CAR_VIEW_PANEL_H
#define RVIZ_PLUGIN_CAR_VIEW_PANEL_H

#include "base_car_view.h"
#include "vehicle_panel.h"
#include "vehicle_panels_logic/latest_value_relay.h"

#include <custom/VehicleStatus.h>

#include <memory>
#include <string>

Q_DECLARE_METATYPE(custom::VehicleStatus)

namespace rviz_plugin {

// A panel with one instrument cluster fed by one custom::VehicleStatus topic.
class CarViewPanel : public VehiclePanel {
    Q_OBJECT
public:
    CarViewPanel(std::string topic, BaseCarView* view, QWidget* parent);

    void onInitialize() override;
    BaseCarView* View() const { return view; }

Q_SIGNALS:
    void ValueChanged(const custom::VehicleStatus& status);

protected:
    void DeliverLatest() override;

private:
    void InitConnect() const;

    std::string topic;
    BaseCarView* view;
    std::shared_ptr<LatestValueRelay<custom::VehicleStatus>> latest;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_SCENE_FUN_PANEL_H
#define RVIZ_PLUGIN_SCENE_FUN_PANEL_H

#include "car_view/vehicle_panel.h"
#include "vehicle_panels_logic/latest_value_relay.h"

#include <custom/KeyObject.h>
#include <custom/NavigationStatus.h>

#include <memory>

Q_DECLARE_METATYPE(custom::KeyObject)
Q_DECLARE_METATYPE(custom::NavigationStatus)

namespace rviz_plugin {

class SceneFunctionWidget;

// The driving function and the key object, from "TopicKeyObjects" and "TopicNavigationStatus"; the
// two topics are independent, each message checked whole.
class SceneFunPanel : public VehiclePanel {
    Q_OBJECT
public:
    explicit SceneFunPanel(QWidget* parent = nullptr);

    void onInitialize() override;
    SceneFunctionWidget* Widget() const { return widget; }

Q_SIGNALS:
    void ValueKeyObjectChanged(const custom::KeyObject& keyObject);
    void ValueNavigationStatusChanged(const custom::NavigationStatus& status);

protected:
    void DeliverLatest() override;

private:
    void InitConnect() const;

    SceneFunctionWidget* widget;
    std::shared_ptr<LatestValueRelay<custom::KeyObject>> latestKeyObject;
    std::shared_ptr<LatestValueRelay<custom::NavigationStatus>> latestNavigationStatus;
};

} // namespace rviz_plugin

#endif

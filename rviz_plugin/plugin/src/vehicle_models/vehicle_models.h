#ifndef RVIZ_PLUGIN_VEHICLE_MODELS_H
#define RVIZ_PLUGIN_VEHICLE_MODELS_H

#ifndef Q_MOC_RUN
#include <rviz/default_plugin/robot_model_display.h>
#endif

#include <string>
#include <vector>

namespace rviz {
class EditableEnumProperty;
}

namespace rviz_plugin {

// The vehicle's model in the 3D view: rviz's robot model with a short property list, the robot
// description chosen among the URDF documents on the parameter server.
class VehicleModels : public rviz::RobotModelDisplay {
    Q_OBJECT
public:
    VehicleModels();

    void onInitialize() override;
    rviz::EditableEnumProperty* DescriptionProperty() const { return vehicleDescriptionProperty; }

private Q_SLOTS:
    void UpdateRobotDescription();
    void UpdateRobotDescriptionCombobox();

private:
    void HideProperty();

    rviz::EditableEnumProperty* vehicleDescriptionProperty = nullptr;
};

} // namespace rviz_plugin

#endif

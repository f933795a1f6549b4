#include "vehicle_models.h"

#include "foundation/logger_stream.h"
#include "foundation/memory_exception.h"
#include "scene_3d_logic/urdf_params.h"

#ifndef Q_MOC_RUN
#include <ros/ros.h>
#include <rviz/properties/editable_enum_property.h>
#include <rviz/properties/string_property.h>
#endif

#include <algorithm>
#include <iterator>
#include <new>

namespace rviz_plugin {

namespace {
const char* const shownChildren[] = {"Alpha", "Vehicle Description", "Links"};
} // namespace

VehicleModels::VehicleModels() = default;

void VehicleModels::onInitialize()
{
    std::set_new_handler(Orsa::HandleMemoryException);
    rviz::RobotModelDisplay::onInitialize();
    vehicleDescriptionProperty =
        new rviz::EditableEnumProperty("Vehicle Description", "vehicle_description",
                                       "Allows you to select vehicle models.", this, SLOT(UpdateRobotDescription()));
    HideProperty();
    robot_description_property_->setString(vehicleDescriptionProperty->getString());
    connect(vehicleDescriptionProperty, &rviz::EditableEnumProperty::requestOptions, this,
            &VehicleModels::UpdateRobotDescriptionCombobox);
}

void VehicleModels::HideProperty()
{
    // Looked up among the children by hand: rviz's own lookup complains about a missing name.
    for (const char* kept : shownChildren) {
        bool found = false;
        for (int index = 0; index < numChildren() && !found; ++index) {
            found = childAt(index)->getName() == kept;
        }
        if (!found) {
            Orsa::LoggerStream("VehicleModels", Orsa::LogLevel::Error) << "VehicleModels: " << kept << " not found";
        }
    }
    for (int index = 0; index < numChildren(); ++index) {
        rviz::Property* child = childAt(index);
        const QString name = child->getName();
        const bool shown = std::any_of(std::begin(shownChildren), std::end(shownChildren),
                                       [&name](const char* kept) { return name == kept; });
        child->setHidden(!shown);
    }
}

void VehicleModels::UpdateRobotDescription()
{
    robot_description_property_->setString(vehicleDescriptionProperty->getString());
}

void VehicleModels::UpdateRobotDescriptionCombobox()
{
    vehicleDescriptionProperty->clearOptions();
    std::vector<std::string> names;
    ros::NodeHandle node;
    if (!node.getParamNames(names)) {
        return;
    }
    const auto read = [&node](const std::string& name, std::string& value) { return node.getParam(name, value); };
    const auto onError = [this](const std::string& name, const std::string& error) {
        setStatus(rviz::StatusProperty::Error, "URDF",
                  QString("Invalid parameter name: %1.\n%2").arg(QString::fromStdString(name),
                                                                 QString::fromStdString(error)));
    };
    for (const std::string& name : GetUrdfParams(names, read, onError)) {
        vehicleDescriptionProperty->addOptionStd(name);
    }
}

} // namespace rviz_plugin

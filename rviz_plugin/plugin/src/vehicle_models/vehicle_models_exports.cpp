// Registers the plugin classes with rviz's class loader.
#include "vehicle_models.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::VehicleModels, rviz::Display)

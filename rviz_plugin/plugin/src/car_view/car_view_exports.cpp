// Registers the plugin classes with rviz's class loader.
#include "car_status_view.h"
#include "control_instruction.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::CarStatusView, rviz::Panel)
PLUGINLIB_EXPORT_CLASS(rviz_plugin::ControlInstruction, rviz::Panel)

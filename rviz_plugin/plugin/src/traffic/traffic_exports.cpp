// Registers the plugin classes with rviz's class loader.
#include "traffic_elements_panel.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::TrafficElementsPanel, rviz::Panel)

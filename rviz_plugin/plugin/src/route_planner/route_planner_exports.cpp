// Registers the route panel with rviz's class loader.
#include "route_planner_panel.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::RoutePlannerPanel, rviz::Panel)

// Registers the point tools with rviz's class loader.
#include "clear_point.h"
#include "end_point.h"
#include "refresh_point.h"
#include "way_point.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::WayPoint, rviz::Tool)
PLUGINLIB_EXPORT_CLASS(rviz_plugin::EndPoint, rviz::Tool)
PLUGINLIB_EXPORT_CLASS(rviz_plugin::RefreshPoint, rviz::Tool)
PLUGINLIB_EXPORT_CLASS(rviz_plugin::ClearPoint, rviz::Tool)

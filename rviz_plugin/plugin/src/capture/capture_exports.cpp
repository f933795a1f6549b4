// Registers the capture tool with rviz's class loader.
#include "capture_multisensor_data_tool.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::CaptureMultisensorDataTool, rviz::Tool)

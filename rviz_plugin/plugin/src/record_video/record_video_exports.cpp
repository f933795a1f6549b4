// Registers the recording tool with rviz's class loader.
#include "record_video_data_tool.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::RecordVideoDataTool, rviz::Tool)

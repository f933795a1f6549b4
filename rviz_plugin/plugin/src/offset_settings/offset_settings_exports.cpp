// Registers the offset settings tool with rviz's class loader.
#include "offset_settings_plugin.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::OffsetSettingsPlugin, rviz::Tool)

// Registers the plugin classes with rviz's class loader.
#include "stereo_freespace_display.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::StereoFreespaceDisplay, rviz::Display)

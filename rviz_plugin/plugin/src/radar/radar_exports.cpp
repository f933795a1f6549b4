// Registers the plugin classes with rviz's class loader.
#include "radar_detect_display.h"
#include "radar_track_display.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::RadarDetectDisplay, rviz::Display)
PLUGINLIB_EXPORT_CLASS(rviz_plugin::RadarTrackDisplay, rviz::Display)

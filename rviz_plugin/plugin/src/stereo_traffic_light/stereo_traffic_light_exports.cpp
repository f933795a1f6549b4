// Registers the plugin classes with rviz's class loader.
#include "stereo_traffic_light.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::StereoTrafficLight, rviz::Display)

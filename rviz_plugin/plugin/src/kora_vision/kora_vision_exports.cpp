// Registers the plugin classes with rviz's class loader.
#include "kora_vision_display.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::KoraVisionDisplay, rviz::Display)

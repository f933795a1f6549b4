// Registers the plugin classes with rviz's class loader.
#include "scene_fun_panel.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::SceneFunPanel, rviz::Panel)

#include "plot.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::Plot, rviz::Panel)

#include "msg_data_panel.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::MsgDataPanel, rviz::Panel)

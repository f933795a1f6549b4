// Registers the remote commands panel with rviz's class loader.
#include "kora_remote_commands_panel.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::KoraRemoteCommandsPanel, rviz::Panel)

// Registers the decoder switch tool with rviz's class loader.
#include "decoder_switch.h"

#include <pluginlib/class_list_macros.hpp>

PLUGINLIB_EXPORT_CLASS(rviz_plugin::DecoderSwitch, rviz::Tool)

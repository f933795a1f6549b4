#ifndef RVIZ_PLUGIN_ENCODER_TYPE_H
#define RVIZ_PLUGIN_ENCODER_TYPE_H

#include <memory>

namespace rviz_plugin {

class Encoder;

// The encoders in the order they are tried: a failing one falls back to the next, down to software.
enum class EncoderType { Nvidia = 0, Intel = 1, Software = 2 };

// A new encoder of the type, with a time base of 1/30.
std::unique_ptr<Encoder> MakeEncoder(EncoderType type);
// The type after this one; software is the last and stays.
EncoderType NextEncoderType(EncoderType type);

} // namespace rviz_plugin

#endif

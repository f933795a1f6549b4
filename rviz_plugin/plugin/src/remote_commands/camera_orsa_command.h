#ifndef RVIZ_PLUGIN_CAMERA_ORSA_COMMAND_H
#define RVIZ_PLUGIN_CAMERA_ORSA_COMMAND_H

#include "builtin_command.h"

namespace rviz_plugin {

// The compiled-in "launch camera_orsa", used when the car's list of built-in commands cannot be read.
class CameraOrsaCommand : public BuiltinCommand {
    Q_OBJECT
public:
    CameraOrsaCommand();
};

} // namespace rviz_plugin

#endif

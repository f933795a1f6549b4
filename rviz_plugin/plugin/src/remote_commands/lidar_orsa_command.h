#ifndef RVIZ_PLUGIN_LIDAR_ORSA_COMMAND_H
#define RVIZ_PLUGIN_LIDAR_ORSA_COMMAND_H

#include "builtin_command.h"

namespace rviz_plugin {

// The compiled-in "launch lidar_orsa", used when the car's list of built-in commands cannot be read.
class LidarOrsaCommand : public BuiltinCommand {
    Q_OBJECT
public:
    LidarOrsaCommand();
};

} // namespace rviz_plugin

#endif

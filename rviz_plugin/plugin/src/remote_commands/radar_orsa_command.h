#ifndef RVIZ_PLUGIN_RADAR_ORSA_COMMAND_H
#define RVIZ_PLUGIN_RADAR_ORSA_COMMAND_H

#include "builtin_command.h"

namespace rviz_plugin {

// The compiled-in "launch radar_orsa", used when the car's list of built-in commands cannot be read.
class RadarOrsaCommand : public BuiltinCommand {
    Q_OBJECT
public:
    RadarOrsaCommand();
};

} // namespace rviz_plugin

#endif

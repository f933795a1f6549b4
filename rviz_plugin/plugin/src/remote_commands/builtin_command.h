#ifndef RVIZ_PLUGIN_BUILTIN_COMMAND_H
#define RVIZ_PLUGIN_BUILTIN_COMMAND_H

#include "command.h"

namespace rviz_plugin {

// A command of the car's platform: a template with the user's arguments in place of "{}", checked for
// its program on the car.
class BuiltinCommand : public Command {
    Q_OBJECT
public:
    BuiltinCommand();
};

} // namespace rviz_plugin

#endif

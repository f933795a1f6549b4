#include "builtin_command.h"

namespace rviz_plugin {

BuiltinCommand::BuiltinCommand()
{
    SetIsBuiltinCommand(true);
    SetShouldVerifyValidity(true);
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_BUILTIN_COMMANDS_FILE_H
#define RVIZ_PLUGIN_BUILTIN_COMMANDS_FILE_H

#include <map>
#include <string>
#include <vector>

namespace rviz_plugin {

// One entry of the car's built-in commands file.
struct BuiltinCommandEntry {
    std::string name;
    bool checkValidity = false;  // "type": "app" (checked on the car) or "shell"
    std::string commandTemplate;
    std::string defaultArgument;  // "$GET_ORSA_SERVER_IP_PORT" already replaced
    int buttonFlag = 0;
    std::string description;
};

// "HAS_EXECUTE" 1, "HAS_VIEW" 2, "HAS_EDIT" 4, "HAS_REMOVE" 8.
const std::map<std::string, int>& ButtonFlagNames();

// The entries of {"viz_builtin_commands": [...]}; false (logged) when the text is not JSON, does not
// follow the file's schema, or names an unknown action flag.
bool ParseBuiltinCommandsText(const std::string& text, const std::string& serverAddress,
                              std::vector<BuiltinCommandEntry>& entries);

// The text from the first "{" to the last "}" (drops a shell's echo and prompt), or "".
std::string JsonObjectText(const std::string& output);

} // namespace rviz_plugin

#endif

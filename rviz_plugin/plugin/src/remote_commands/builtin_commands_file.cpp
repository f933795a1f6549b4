#include "builtin_commands_file.h"

#include "foundation/config_file_tool.h"
#include "remote_log.h"

namespace rviz_plugin {

namespace {
// The file's schema. "type" is one of "app" and "shell" (an enum: the schema checker refuses patterns).
const char* const builtinSchema = R"json({
  "type": "object",
  "required": ["viz_builtin_commands"],
  "properties": {
    "viz_builtin_commands": {
      "type": "array",
      "items": {
        "type": "object",
        "required": ["name", "type", "command_template", "default_arg", "actions_flag", "description"],
        "properties": {
          "name": {"type": "string"},
          "type": {"type": "string", "enum": ["app", "shell"]},
          "command_template": {"type": "string"},
          "default_arg": {"type": "string"},
          "actions_flag": {"type": "string"},
          "description": {"type": "string"}
        }
      }
    }
  }
})json";
const std::string serverAddressPlaceHolder = "$GET_ORSA_SERVER_IP_PORT";
const std::string flagSeparator = " | ";

std::string ReplaceAll(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

bool ReadFlags(const std::string& text, int& flags)
{
    flags = 0;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(flagSeparator, start);
        const std::string name = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        const auto found = ButtonFlagNames().find(name);
        if (found == ButtonFlagNames().end()) {
            RemoteError("Unknown actions flag '" + name + "'.");
            return false;
        }
        flags |= found->second;
        if (end == std::string::npos) {
            return true;
        }
        start = end + flagSeparator.size();
    }
}
} // namespace

const std::map<std::string, int>& ButtonFlagNames()
{
    static const std::map<std::string, int> names{{"HAS_EXECUTE", 1}, {"HAS_VIEW", 2}, {"HAS_EDIT", 4}, {"HAS_REMOVE", 8}};
    return names;
}

bool ParseBuiltinCommandsText(const std::string& text, const std::string& serverAddress,
                              std::vector<BuiltinCommandEntry>& entries)
{
    rapidjson::Document document;
    rapidjson::Document schema;
    if (Orsa::ConfigFileTool::ReadJsonString(text, document) || Orsa::ConfigFileTool::ReadJsonString(builtinSchema, schema) ||
        !Orsa::ConfigFileTool::IsJsonConsistentWithSchema(document, schema)) {
        return false;
    }
    for (const auto& item : document["viz_builtin_commands"].GetArray()) {
        BuiltinCommandEntry entry;
        entry.name = item["name"].GetString();
        entry.checkValidity = std::string(item["type"].GetString()) == "app";
        entry.commandTemplate = item["command_template"].GetString();
        entry.defaultArgument = ReplaceAll(item["default_arg"].GetString(), serverAddressPlaceHolder, serverAddress);
        if (!ReadFlags(item["actions_flag"].GetString(), entry.buttonFlag)) {
            return false;
        }
        entry.description = item["description"].GetString();
        entries.push_back(std::move(entry));
    }
    return true;
}

std::string JsonObjectText(const std::string& output)
{
    const std::size_t first = output.find('{');
    const std::size_t last = output.rfind('}');
    if (first == std::string::npos || last == std::string::npos || last < first) {
        return {};
    }
    return output.substr(first, last - first + 1);
}

} // namespace rviz_plugin

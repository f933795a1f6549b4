// libFuzzer target: what the car sends back as files: the built-in commands file (through the shell's
// echo and prompt), and a version file matched against a fixed local one.
#include "remote_commands/builtin_commands_file.h"
#include "remote_commands/version_file.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const std::string output(reinterpret_cast<const char*>(data), size);
    const std::string json = rviz_plugin::JsonObjectText(output);
    std::vector<rviz_plugin::BuiltinCommandEntry> entries;
    rviz_plugin::ParseBuiltinCommandsText(json, "192.168.1.100 7000", entries);
    rviz_plugin::ParseBuiltinCommandsText(output, "192.168.1.100 7000", entries);

    rviz_plugin::VersionFile remote;
    remote.Parse(json);
    static const std::vector<rviz_plugin::InternalInterface> local{{"viz", {1, 2}}, {"car", {3, 0}}};
    rviz_plugin::MatchInterfaces(local, remote.GetInternalInterfaces());
    rviz_plugin::VersionFile::IsVersionFormat(output);
    return 0;
}

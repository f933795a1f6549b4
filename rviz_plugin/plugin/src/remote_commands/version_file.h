#ifndef RVIZ_PLUGIN_VERSION_FILE_H
#define RVIZ_PLUGIN_VERSION_FILE_H

#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// An interface and its version (major, minor).
struct InternalInterface {
    std::string name;
    std::pair<int, int> version;
};

// A version file: {"InterfaceList": [{"InterfaceName": "...", "InterfaceVersions": "<major>.<minor>"}]}.
class VersionFile {
public:
    // False when text is not JSON.
    bool Parse(const std::string& text);
    // The interfaces with a well-formed version, in file order (empty, and logged, when the document or
    // its list has the wrong type).
    std::vector<InternalInterface> GetInternalInterfaces() const;
    static bool IsVersionFormat(const std::string& text);
    static std::pair<int, int> ConvertStringToVersion(const std::string& text);

private:
    std::string json;
};

enum class Compatibility { Incompatible, PartiallyCompatible, Compatible };

// The local interfaces against the remote ones: for each interface both have, a remote version of the
// same major number is "partially compatible", and also compatible when the local minor number is at
// most the remote one. Several interfaces give the worst of their results; none in common, incompatible.
Compatibility MatchInterfaces(const std::vector<InternalInterface>& local, const std::vector<InternalInterface>& remote);
const char* CompatibilityText(Compatibility compatibility);

} // namespace rviz_plugin

#endif

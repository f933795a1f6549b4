#include "version_file.h"

#include "remote_log.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <regex>

namespace rviz_plugin {

bool VersionFile::Parse(const std::string& text)
{
    rapidjson::Document document;
    document.Parse(text.c_str(), text.size());
    if (document.HasParseError()) {
        json.clear();
        return false;
    }
    json = text;
    return true;
}

std::vector<InternalInterface> VersionFile::GetInternalInterfaces() const
{
    std::vector<InternalInterface> interfaces;
    rapidjson::Document document;
    document.Parse(json.c_str(), json.size());
    if (document.HasParseError() || !document.IsObject()) {
        RemoteError("The JSON document is not an object.");
        return interfaces;
    }
    const auto list = document.FindMember("InterfaceList");
    if (list == document.MemberEnd() || !list->value.IsArray()) {
        RemoteError("The 'InterfaceList' field is not array.");
        return interfaces;
    }
    for (const auto& item : list->value.GetArray()) {
        if (!item.IsObject() || !item.HasMember("InterfaceName") || !item["InterfaceName"].IsString() ||
            !item.HasMember("InterfaceVersions") || !item["InterfaceVersions"].IsString() ||
            !IsVersionFormat(item["InterfaceVersions"].GetString())) {
            continue;
        }
        interfaces.push_back({item["InterfaceName"].GetString(),
                              ConvertStringToVersion(item["InterfaceVersions"].GetString())});
    }
    return interfaces;
}

bool VersionFile::IsVersionFormat(const std::string& text)
{
    static const std::regex format(R"(^\d+(?:\.\d+){1}$)");
    return std::regex_match(text, format);
}

std::pair<int, int> VersionFile::ConvertStringToVersion(const std::string& text)
{
    const std::size_t point = text.find('.');
    try {
        return {std::stoi(text.substr(0, point)), std::stoi(text.substr(point + 1))};
    } catch (const std::exception&) {  // numbers beyond int
        return {-1, -1};
    }
}

Compatibility MatchInterfaces(const std::vector<InternalInterface>& local, const std::vector<InternalInterface>& remote)
{
    bool anyShared = false;
    Compatibility worst = Compatibility::Compatible;
    for (const InternalInterface& mine : local) {
        bool shared = false;
        bool sameMajor = false;
        bool minorFits = false;
        for (const InternalInterface& theirs : remote) {
            if (theirs.name != mine.name) {
                continue;
            }
            shared = true;
            if (theirs.version.first == mine.version.first) {
                sameMajor = true;
                if (mine.version.second <= theirs.version.second) {
                    minorFits = true;
                    break;
                }
            }
        }
        if (!shared) {
            continue;
        }
        anyShared = true;
        const Compatibility result = !sameMajor ? Compatibility::Incompatible
                                                : (minorFits ? Compatibility::Compatible
                                                             : Compatibility::PartiallyCompatible);
        worst = std::min(worst, result);
    }
    return anyShared ? worst : Compatibility::Incompatible;
}

const char* CompatibilityText(Compatibility compatibility)
{
    switch (compatibility) {
    case Compatibility::Compatible: return "Compatible";
    case Compatibility::PartiallyCompatible: return "Partially compatible";
    case Compatibility::Incompatible: break;
    }
    return "Incompatible";
}

} // namespace rviz_plugin

#include "map_offset_filter_setting_file.h"

#include "foundation/config_file_tool.h"
#include "foundation/file_hander.h"

#include <algorithm>

namespace Orsa {

namespace {
bool ReadNames(const rapidjson::Document& document, const char* key, std::vector<std::string>& names)
{
    const auto member = document.FindMember(key);
    if (member == document.MemberEnd() || !member->value.IsArray()) {
        return false;
    }
    for (const auto& element : member->value.GetArray()) {
        if (!element.IsString()) {
            return false;
        }
        std::string name(element.GetString(), element.GetStringLength());
        MapOffsetFilterSettingFile::EraseSlash(name);
        names.push_back(std::move(name));
    }
    return true;
}

bool Contains(const std::vector<std::string>& names, std::string name)
{
    MapOffsetFilterSettingFile::EraseSlash(name);
    return std::find(names.begin(), names.end(), name) != names.end();
}
} // namespace

bool MapOffsetFilterSettingFile::ParseConfigFile()
{
    topics.clear();
    childFrameIds.clear();
    const std::string path = FileHander::RelativePathToAbsolutePath(filePath);
    rapidjson::Document document;
    if (ConfigFileTool::ReadJsonFile(path, document) || !document.IsObject()) {
        return false;
    }
    return ReadNames(document, "topics", topics) && ReadNames(document, "tf_child_frame_id", childFrameIds);
}

bool MapOffsetFilterSettingFile::IsTopicNeedApplyOffset(const std::string& name) const
{
    return Contains(topics, name);
}

bool MapOffsetFilterSettingFile::IsChildFrameIdNeedApplyOffset(const std::string& name) const
{
    return Contains(childFrameIds, name);
}

void MapOffsetFilterSettingFile::EraseSlash(std::string& name)
{
    const std::size_t first = name.find_first_not_of('/');
    name.erase(0, first == std::string::npos ? name.size() : first);
}

} // namespace Orsa

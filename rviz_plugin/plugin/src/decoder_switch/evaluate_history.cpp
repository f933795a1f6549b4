#include "evaluate_history.h"

#include "foundation/config_file_tool.h"
#include "foundation/file_hander.h"

#include <filesystem>

namespace rviz_plugin {

namespace {
const char* const formatKey = "video_format";
const char* const channelsKey = "number_of_decode_channels";
} // namespace

EvaluateHistory::EvaluateHistory(std::string path) : filePath(std::move(path)) {}

bool EvaluateHistory::ParseConfigFile()
{
    records.clear();
    if (!Orsa::FileHander::IsFileExist(filePath)) {
        return true;
    }
    return ParseConfigText(Orsa::FileHander::ReadFile(filePath));
}

bool EvaluateHistory::ParseConfigText(const std::string& text)
{
    records.clear();
    rapidjson::Document document;
    if (Orsa::ConfigFileTool::ReadJsonString(text, document) || !document.IsObject()) {
        return false;
    }
    for (auto decoder = document.MemberBegin(); decoder != document.MemberEnd(); ++decoder) {
        if (!decoder->value.IsArray()) {
            return false;
        }
        for (const auto& entry : decoder->value.GetArray()) {
            if (!entry.IsObject() || !entry.HasMember(formatKey) || !entry[formatKey].IsString() ||
                !entry.HasMember(channelsKey) || !entry[channelsKey].IsInt()) {
                return false;
            }
            records[{decoder->name.GetString(), entry[formatKey].GetString()}] = entry[channelsKey].GetInt();
        }
    }
    return true;
}

bool EvaluateHistory::SaveConfigFile() const
{
    rapidjson::Document document(rapidjson::kObjectType);
    auto& allocator = document.GetAllocator();
    for (const auto& record : records) {
        rapidjson::Value name(record.first.first.c_str(), allocator);
        if (!document.HasMember(name)) {
            document.AddMember(name, rapidjson::Value(rapidjson::kArrayType), allocator);
        }
        rapidjson::Value entry(rapidjson::kObjectType);
        entry.AddMember(rapidjson::StringRef(formatKey), rapidjson::Value(record.first.second.c_str(), allocator),
                        allocator);
        entry.AddMember(rapidjson::StringRef(channelsKey), record.second, allocator);
        document[record.first.first.c_str()].PushBack(entry, allocator);
    }
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(filePath).parent_path(), ignored);
    return Orsa::ConfigFileTool::WriteJsonFile(filePath, document);
}

int EvaluateHistory::GetChannels(const std::string& decoder, const std::string& format) const
{
    const auto found = records.find({decoder, format});
    return found == records.end() ? -1 : found->second;
}

void EvaluateHistory::SetChannels(const std::string& decoder, const std::string& format, int channels)
{
    records[{decoder, format}] = channels;
}

} // namespace rviz_plugin

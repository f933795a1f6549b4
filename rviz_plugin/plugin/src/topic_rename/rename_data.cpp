#include "rename_data.h"

#include "foundation/config_file_tool.h"
#include "foundation/file_hander.h"
#include "foundation/logger.h"
#include "foundation/master_topics.h"
#include "foundation/path_utils.h"

#include <ros/master.h>

#include <QFontMetrics>

#include <filesystem>

namespace rviz_plugin {

namespace {
const QStringList& BuiltInDefaultAlias()
{
    static const QStringList names{
        "Front-Left-Short Focus",        "Front-Left-Medium Focus",       "Front-Left-Long Focus",
        "Front-Center-Short Focus",      "Front-Center-Medium Focus",     "Front-Center-Long Focus",
        "Front-Right-Short Focus",       "Front-Right-Medium Focus",      "Front-Right-Long Focus",
        "Side-Left Front-Short Focus",   "Side-Left Front-Medium Focus",  "Side-Left Front-Long Focus",
        "Side-Right Front-Short Focus",  "Side-Right Front-Medium Focus", "Side-Right Front-Long Focus",
        "Side-Left Rear-Short Focus",    "Side-Left Rear-Medium Focus",   "Side-Left Rear-Long Focus",
        "Side-Right Rear-Short Focus",   "Side-Right Rear-Medium Focus",  "Side-Right Rear-Long Focus",
        "Surround-Front-Fish Eye",       "Surround-Rear-Fish Eye",        "Surround-Left-Fish Eye",
        "Surround-Right-Fish Eye",       "Rear-Left-Short Focus",         "Rear-Left-Medium Focus",
        "Rear-Left-Long Focus",          "Rear-Center-Short Focus",       "Rear-Center-Medium Focus",
        "Rear-Center-Long Focus",        "Rear-Right-Short Focus",        "Rear-Right-Medium Focus",
        "Rear-Right-Long Focus"};
    return names;
}

void Warn(const std::string& text)
{
    Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error, text);
}
} // namespace

const QStringList& RenameData::TableHeader()
{
    static const QStringList header{"Topics", "Custom Name"};
    return header;
}

RenameData::RenameData(QObject* parent) : QObject(parent), defaultAlias(BuiltInDefaultAlias()) {}

void RenameData::InitRenameData()
{
    ObtainRosMasterTopic();
}

void RenameData::ObtainRosMasterTopic()
{
    topicMap.clear();
    ros::master::V_TopicInfo topics;
    GetTopicsWithoutWaiting(topics);
    for (const ros::master::TopicInfo& topic : topics) {
        if (topic.datatype == "custom/Video") {
            const std::string key = AliasKey(topic.name);
            const auto known = aliasMap.find(key);
            topicMap[key] = known != aliasMap.end() ? known->second : std::string();
        }
    }
}

void RenameData::SetTableData()
{
    rows.assign(topicMap.begin(), topicMap.end());
    Q_EMIT UpdateDisplayModel();
}

void RenameData::SetRowName(std::size_t row, const std::string& name)
{
    if (row < rows.size()) {
        rows[row].second = name;
        topicMap[rows[row].first] = name;
        aliasMap[rows[row].first] = name;
    }
}

std::string RenameData::GetAlias(const std::string& topic) const
{
    const auto found = aliasMap.find(AliasKey(topic));
    return found != aliasMap.end() ? found->second : std::string();
}

std::string RenameData::GetFilePath()
{
    std::string root;
    Orsa::GetOrsaPath(root);
    return Orsa::JoinPath(root, std::string("config/") + fileName);
}

void RenameData::ReadAliasFromFile()
{
    const std::string file = GetFilePath();
    if (!Orsa::FileHander::IsFileExist(file)) {
        return;  // no names given yet
    }
    rapidjson::Document document;
    if (Orsa::ConfigFileTool::ReadJsonFile(Orsa::FileHander::RelativePathToAbsolutePath(file), document) ||
        !document.IsObject()) {
        return;
    }
    const auto aliases = document.FindMember("topic_alias");
    if (aliases != document.MemberEnd() && aliases->value.IsObject()) {
        for (const auto& member : aliases->value.GetObject()) {
            if (member.value.IsString()) {
                aliasMap[AliasKey(member.name.GetString())] = member.value.GetString();
            }
        }
    }
    const auto defaults = document.FindMember("default_alias");
    if (defaults != document.MemberEnd() && defaults->value.IsArray()) {
        QStringList names;
        for (const auto& name : defaults->value.GetArray()) {
            if (name.IsString()) {
                names << QString::fromUtf8(name.GetString(), static_cast<int>(name.GetStringLength()));
            }
        }
        defaultAlias = names;
    }
    VerifyContentFromFile();
}

void RenameData::VerifyContentFromFile()
{
    HandleWordsLengthFromFile();
    HandleDuplicateNameFromFile();
}

void RenameData::HandleWordsLengthFromFile()
{
    for (auto& [topic, name] : aliasMap) {
        if (!VerifyLengthValidity(name).empty()) {
            name.clear();
            Warn(std::string(lengthWarning) + " The corresponding topic is " + topic);
        }
    }
}

void RenameData::HandleDuplicateNameFromFile()
{
    for (auto first = aliasMap.begin(); first != aliasMap.end(); ++first) {
        for (auto later = std::next(first); later != aliasMap.end(); ++later) {
            if (!first->second.empty() && later->second == first->second) {
                Warn(std::string(duplicateWarning) + " The corresponding topic and custom name are " + later->first +
                     " and " + later->second + ", respectively.");
                later->second.clear();
            }
        }
    }
}

bool RenameData::WriteRenameData() const
{
    rapidjson::Document document(rapidjson::kObjectType);
    auto& allocator = document.GetAllocator();
    rapidjson::Value aliases(rapidjson::kObjectType);
    for (const auto& [topic, name] : aliasMap) {
        if (!name.empty()) {
            aliases.AddMember(rapidjson::Value(topic.c_str(), allocator), rapidjson::Value(name.c_str(), allocator),
                              allocator);
        }
    }
    rapidjson::Value defaults(rapidjson::kArrayType);
    for (const QString& name : defaultAlias) {
        defaults.PushBack(rapidjson::Value(name.toStdString().c_str(), allocator), allocator);
    }
    document.AddMember("topic_alias", aliases, allocator);
    document.AddMember("default_alias", defaults, allocator);
    const std::string path = GetFilePath();
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
    return Orsa::ConfigFileTool::WriteJsonFile(path, document);
}

QString RenameData::GetDisplayCameraName(const QString& name, const QFont& font, int width)
{
    return QFontMetrics(font).elidedText(name, Qt::ElideMiddle, width);
}

void RenameData::GetCameraTopicWidthAlias(std::string& out, const std::string& topic)
{
    RenameData data;
    data.ReadAliasFromFile();
    out += topic;
    const std::string alias = data.GetAlias(topic);
    if (!alias.empty()) {
        out += "_" + alias;
    }
}

} // namespace rviz_plugin

#include "topic_tf_utility.h"

#include "logger.h"

namespace rviz_plugin {

void TopicTfUtility::ParseTopic(std::string& topic)
{
    const std::size_t bracket = topic.find('[');
    if (bracket != std::string::npos) {
        topic.erase(bracket);
    }
    if (!topic.empty() && topic.front() == '/') {
        topic.erase(0, 1);
    }
}

void TopicTfUtility::ReadJson(std::string& path)
{
    settings.SetFilePath(path);
    if (!settings.ParseConfigFile()) {
        Orsa::Logger::GetInstance().WriteLog("OffsetSettings", Orsa::LogLevel::Error,
                                             "Failed to parse the JSON file. The file name is " + path);
    }
}

std::pair<std::vector<std::string>, std::vector<std::string>> TopicTfUtility::GetTopicTfInJson() const
{
    return {settings.GetNeedModifiedTopics(), settings.GetNeedModifiedTfChildFrameIds()};
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_TOPIC_TF_UTILITY_H
#define RVIZ_PLUGIN_TOPIC_TF_UTILITY_H

#include <string>
#include <utility>
#include <vector>

namespace Orsa {

// What the offset settings file gives: the topics and transform child frames that take the map offset.
class TopicTfSettings {
public:
    virtual ~TopicTfSettings() = default;
    virtual void SetFilePath(const std::string& path) = 0;
    // False when the file cannot be read or does not have the expected form.
    virtual bool ParseConfigFile() = 0;
    virtual std::vector<std::string> GetNeedModifiedTopics() const = 0;
    virtual std::vector<std::string> GetNeedModifiedTfChildFrameIds() const = 0;
};

} // namespace Orsa

namespace rviz_plugin {

// The topics and frames of the offset settings file, for the settings dialog.
class TopicTfUtility {
public:
    explicit TopicTfUtility(Orsa::TopicTfSettings& settings) : settings(settings) {}

    // "/name[type]" -> "name": cut at the first "[", then one leading "/" goes.
    static void ParseTopic(std::string& topic);
    void ReadJson(std::string& path);
    // The file's topics and child frame ids.
    std::pair<std::vector<std::string>, std::vector<std::string>> GetTopicTfInJson() const;

private:
    Orsa::TopicTfSettings& settings;
};

} // namespace rviz_plugin

#endif

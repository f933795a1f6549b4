#ifndef RVIZ_PLUGIN_TOPIC_LIST_H
#define RVIZ_PLUGIN_TOPIC_LIST_H

#include "offset_settings_logic/topic_selection.h"

#include <QListWidget>

namespace rviz_plugin {

// The topics with a tick each, shown as "<topic>[<type>]"; topics that are not 3D data in the map
// frame are disabled with a tool tip that says so.
class TopicList : public QListWidget {
    Q_OBJECT
public:
    explicit TopicList(QWidget* parent = nullptr);

    void Refresh(const std::vector<std::pair<std::string, std::string>>& liveTopics,
                 const std::vector<std::string>& fileTopics);
    void TypeFilter(const QString& type);
    void SearchFilter(const QString& text);
    // The header box "Topic": ticks or unticks every shown topic.
    void OtherTopicStateChanged(bool checked);
    std::vector<std::string> GetTopicListCheckStatus() const { return selection.GetChecked(); }
    bool IsTopicModified() const { return selection.IsModified(); }
    std::vector<std::string> GetTypes() const { return selection.GetTypes(); }
    TopicSelection::HeaderState GetHeaderState() const { return selection.GetHeaderState(); }

Q_SIGNALS:
    // The header box follows: unchecked, partly checked or checked.
    void TopicStateChanged(Qt::CheckState state);

private:
    void BuildTopicList();
    void SetTopicStatus();
    void DisplayTopic();

    TopicSelection selection;
};

} // namespace rviz_plugin

#endif

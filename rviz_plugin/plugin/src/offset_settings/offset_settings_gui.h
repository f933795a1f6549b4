#ifndef RVIZ_PLUGIN_OFFSET_SETTINGS_GUI_H
#define RVIZ_PLUGIN_OFFSET_SETTINGS_GUI_H

#include "foundation/topic_tf_utility.h"
#include "map_offset/map_offset_filter_setting_file.h"

#include <ros/publisher.h>

#include <QDialog>

class QCheckBox;

namespace rviz {
class DisplayContext;
}

namespace rviz_plugin {

class OffsetXyDisplay;
class OkCancelButton;
class RefreshButton;
class SearchBox;
class TfTree;
class TopicList;
class TypeComboBox;

// The map offset and the choice of the topics and transform frames the platform shifts by it.
class OffsetSettingsGui : public QDialog {
    Q_OBJECT
public:
    explicit OffsetSettingsGui(QWidget* parent = nullptr);

    void SetContext(rviz::DisplayContext* displayContext) { context = displayContext; }
    void SetPublisher(const ros::Publisher& publisher);
    void Init();
    // Reads the file, the offset, the master's topics and the transforms again; unsaved ticks go.
    void RefreshPage();
    const std::string& GetConfigFilePath() const { return configFilePath; }
    void reject() override;

private:
    void InitConfigFilePath();
    void CloseWindow();
    void CreateExitMessageBox();
    std::vector<std::pair<std::string, std::string>> LiveTopics() const;
    std::vector<std::pair<std::string, std::string>> TransformLinks() const;

    rviz::DisplayContext* context = nullptr;
    Orsa::MapOffsetFilterSettingFile settingFile;
    TopicTfUtility utility{settingFile};
    std::string configFilePath;
    OffsetXyDisplay* xDisplay = nullptr;
    OffsetXyDisplay* yDisplay = nullptr;
    TypeComboBox* typeComboBox = nullptr;
    SearchBox* searchBox = nullptr;
    RefreshButton* refreshButton = nullptr;
    QCheckBox* topicHeader = nullptr;
    TopicList* topicList = nullptr;
    TfTree* tfTree = nullptr;
    OkCancelButton* okCancelButton = nullptr;
};

} // namespace rviz_plugin

#endif

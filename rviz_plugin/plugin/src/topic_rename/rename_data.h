#ifndef RVIZ_PLUGIN_RENAME_DATA_H
#define RVIZ_PLUGIN_RENAME_DATA_H

#include "kora_vision_logic/camera_alias.h"

#include <QFont>
#include <QObject>
#include <QStringList>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// The custom names of the camera (custom/Video) topics, kept in <orsaPath>config/camera_topic_alias.json:
// {"topic_alias": {"<topic without its leading slash>": "<name>"}, "default_alias": ["<name>", ...]}.
// Aliases of cameras that are not on the master now are kept and written back.
class RenameData : public QObject {
    Q_OBJECT
public:
    static constexpr const char* fileName = "camera_topic_alias.json";
    static const QStringList& TableHeader();  // "Topics", "Custom Name"

    explicit RenameData(QObject* parent = nullptr);

    void InitRenameData();
    // The master's camera topics: a known one keeps its name, a new one has none.
    void ObtainRosMasterTopic();
    void SetTableData();
    // Reads the file; a missing or unreadable file, or a root that is not an object, changes nothing.
    void ReadAliasFromFile();
    bool WriteRenameData() const;
    // Names over 30 bytes are cleared, then a name already used by an earlier topic; both logged.
    void VerifyContentFromFile();

    const std::vector<std::pair<std::string, std::string>>& GetRows() const { return rows; }
    void SetRowName(std::size_t row, const std::string& name);
    const QStringList& GetDefaultAlias() const { return defaultAlias; }
    // The custom name of topic, or "".
    std::string GetAlias(const std::string& topic) const;

    // The file's path: orsaPath and "config/<file name>", joined with one "/".
    static std::string GetFilePath();
    static QString GetDisplayCameraName(const QString& name, const QFont& font, int width);
    // topic, then "_" and its custom name when it has one (read from the file).
    static void GetCameraTopicWidthAlias(std::string& out, const std::string& topic);

Q_SIGNALS:
    void UpdateDisplayModel();

private:
    void HandleWordsLengthFromFile();
    void HandleDuplicateNameFromFile();

    QStringList defaultAlias;
    std::map<std::string, std::string> aliasMap;   // every known camera
    std::map<std::string, std::string> topicMap;   // the cameras on the master now
    std::vector<std::pair<std::string, std::string>> rows;
};

} // namespace rviz_plugin

#endif

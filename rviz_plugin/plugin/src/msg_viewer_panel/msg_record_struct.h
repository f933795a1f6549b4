#ifndef RVIZ_PLUGIN_MSG_RECORD_STRUCT_H
#define RVIZ_PLUGIN_MSG_RECORD_STRUCT_H

#include <QMap>
#include <QPair>
#include <QRect>
#include <QString>
#include <QVector>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {
namespace MsgRecordStruct {

// The selection of one topic.
struct TopicSelection {
    std::string topicName;
    std::string secondName;  // reserved
    std::string nickName;
    int reservedFirst = 0;
    int reservedSecond = 0;
    bool isChecked = false;  // the panel is a table
};

// One selected field.
struct FieldsSelection {
    std::string fieldName;
    std::string fieldType;
    std::string nickName;
    int reserved = 0;
    std::map<std::string, std::string> extras;
};

// One field as saved.
struct FieldData {
    QString fieldName;
    QString fieldType;
    QString fieldNickName;
    QVector<QPair<int, QString>> constants;
};

// One topic as saved.
struct TopicData {
    QString topicName;
    QString topicNickName;
    QVector<FieldData> fields;
};

// One user panel as saved.
struct PanelData {
    bool hasArrayField = false;
    bool isChecked = false;
    QString panelName;
    QRect widgetPosition;
    std::map<std::string, std::vector<std::pair<std::string, std::string>>> selectedItemMap;
    QMap<QString, QString> fieldSearchResult;
    std::string selectedArrayName;
    // A table's.
    QString topicName;
    int showStatus = 0;
    int sortIndex = -1;
    QVector<FieldData> fields;
    // A key-value panel's.
    QVector<TopicData> topics;
};

} // namespace MsgRecordStruct
} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_MSG_RECORD_STRUCT_H
#define RVIZ_PLUGIN_MSG_RECORD_STRUCT_H

#include <QPair>
#include <QString>
#include <QVector>

#include <map>
#include <string>

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

} // namespace MsgRecordStruct
} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_MSG_RECORD_H
#define RVIZ_PLUGIN_MSG_RECORD_H

#include "msg_record_struct.h"
#include "msg_subscriber.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// The selection of one user panel, and the subscription that feeds it.
class MsgRecord {
public:
    using FieldTypePairs = std::vector<std::pair<std::string, std::string>>;

    explicit MsgRecord(std::unique_ptr<MsgSubscriber> subscriber = std::make_unique<MsgSubscriber>());
    virtual ~MsgRecord();
    MsgRecord(const MsgRecord&) = delete;
    MsgRecord& operator=(const MsgRecord&) = delete;

    // From the definition dialog: topic -> (field, type) pairs.
    void UpdateSelectionDataFromDefinition(bool isTable, const std::string& arrayName,
                                           const std::map<std::string, FieldTypePairs>& selection);
    void UpdateSelection();
    void UpdateSelectTopicsFields();
    void UpdateDataHandlerMsg();

    std::map<std::string, std::string> GetFieldsTypes(const std::string& topic) const;
    std::string GetTopicNickName(const std::string& topic) const;
    void UpdateTopicNickName(const std::string& topic, const std::string& name);
    std::string GetFieldsNickName(const std::string& topic, const std::string& field) const;
    void UpdateFieldsNickName(const std::string& topic, const std::string& field, const std::string& name);
    // Rebuilds the selection from a saved panel.
    void ParsePanelData(const MsgRecordStruct::PanelData* panel);
    void ShutdownSubscriber() { msgSubscriber->ShutdownSubscriber(); }

    bool IsTable() const { return isTable; }
    const std::map<std::string, std::vector<std::string>>& GetTopicFields() const { return topicFields; }
    MsgSubscriber& GetSubscriber() { return *msgSubscriber; }

private:
    void ParseArrayPanelData(const MsgRecordStruct::PanelData& panel);
    void ParseKeyValuePanelData(const MsgRecordStruct::PanelData& panel);
    void AddFields(const std::string& topic, const QVector<MsgRecordStruct::FieldData>& fields);

    std::map<std::string, MsgRecordStruct::TopicSelection> topicSelections;
    std::map<std::string, std::vector<MsgRecordStruct::FieldsSelection>> fieldSelections;
    bool isTable = false;
    std::string selectedArrayName;
    std::map<std::string, std::vector<std::string>> topicFields;
    std::map<std::string, std::map<std::string, std::string>> fieldTypes;
    std::string displayTopic;
    std::unique_ptr<MsgSubscriber> msgSubscriber;
};

} // namespace rviz_plugin

#endif

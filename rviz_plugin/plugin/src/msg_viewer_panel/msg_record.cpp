#include "msg_record.h"

namespace rviz_plugin {

MsgRecord::MsgRecord(std::unique_ptr<MsgSubscriber> subscriber) : msgSubscriber(std::move(subscriber)) {}

MsgRecord::~MsgRecord() = default;

void MsgRecord::UpdateSelectionDataFromDefinition(bool table, const std::string& arrayName,
                                                  const std::map<std::string, FieldTypePairs>& selection)
{
    std::map<std::string, MsgRecordStruct::TopicSelection> topics;
    std::map<std::string, std::vector<MsgRecordStruct::FieldsSelection>> fields;
    for (const auto& [topic, pairs] : selection) {
        MsgRecordStruct::TopicSelection& topicSelection = topics[topic];
        topicSelection.topicName = topic;
        topicSelection.isChecked = table;
        const auto old = topicSelections.find(topic);
        if (old != topicSelections.end()) {
            topicSelection.nickName = old->second.nickName;
        }
        for (const auto& [field, type] : pairs) {
            MsgRecordStruct::FieldsSelection fieldSelection;
            fieldSelection.fieldName = field;
            fieldSelection.fieldType = type;
            const std::string nickName = GetFieldsNickName(topic, field);
            fieldSelection.nickName = nickName == field ? std::string() : nickName;
            fields[topic].push_back(fieldSelection);
        }
    }
    selectedArrayName = arrayName;
    topicSelections.swap(topics);
    fieldSelections.swap(fields);
}

void MsgRecord::UpdateSelection()
{
    UpdateSelectTopicsFields();
    UpdateDataHandlerMsg();
    msgSubscriber->GetHandler().SetLoadedTopicsFields(topicFields);
    msgSubscriber->UpdateMsgDisplaySubscriber(topicFields);
}

void MsgRecord::UpdateSelectTopicsFields()
{
    topicFields.clear();
    fieldTypes.clear();
    for (const auto& [topic, selection] : topicSelections) {
        isTable = selection.isChecked;
        auto& names = topicFields[topic];
        for (const auto& field : fieldSelections[topic]) {
            names.push_back(field.fieldName);
            fieldTypes[topic][field.fieldName] = field.fieldType;
        }
    }
}

void MsgRecord::UpdateDataHandlerMsg()
{
    MsgDataHandler& handler = msgSubscriber->GetHandler();
    handler.SetSelectedFields(topicFields);
    handler.SetFieldTypes(fieldTypes);
    handler.SetArrayMode(!selectedArrayName.empty(), selectedArrayName);
    handler.InitCountDataFrame();
}

std::map<std::string, std::string> MsgRecord::GetFieldsTypes(const std::string& topic) const
{
    const auto found = fieldTypes.find(topic);
    return found == fieldTypes.end() ? std::map<std::string, std::string>() : found->second;
}

std::string MsgRecord::GetTopicNickName(const std::string& topic) const
{
    const auto found = topicSelections.find(topic);
    return found == topicSelections.end() || found->second.nickName.empty() ? topic : found->second.nickName;
}

void MsgRecord::UpdateTopicNickName(const std::string& topic, const std::string& name)
{
    if (!name.empty()) {
        topicSelections[topic].nickName = name;
    }
}

std::string MsgRecord::GetFieldsNickName(const std::string& topic, const std::string& field) const
{
    const auto found = fieldSelections.find(topic);
    if (found != fieldSelections.end()) {
        for (const auto& selection : found->second) {
            if (selection.fieldName == field && !selection.nickName.empty()) {
                return selection.nickName;
            }
        }
    }
    return field;
}

void MsgRecord::UpdateFieldsNickName(const std::string& topic, const std::string& field, const std::string& name)
{
    const auto found = fieldSelections.find(topic);
    if (name.empty() || found == fieldSelections.end()) {
        return;
    }
    for (auto& selection : found->second) {
        if (selection.fieldName == field) {
            selection.nickName = name;
        }
    }
}

void MsgRecord::ParsePanelData(const MsgRecordStruct::PanelData* panel)
{
    if (panel == nullptr) {
        return;
    }
    topicSelections.clear();
    fieldSelections.clear();
    selectedArrayName = panel->selectedArrayName;
    if (panel->hasArrayField) {
        ParseArrayPanelData(*panel);
    } else {
        ParseKeyValuePanelData(*panel);
    }
}

void MsgRecord::AddFields(const std::string& topic, const QVector<MsgRecordStruct::FieldData>& fields)
{
    auto& selections = fieldSelections[topic];
    for (const MsgRecordStruct::FieldData& field : fields) {
        MsgRecordStruct::FieldsSelection selection;
        selection.fieldName = field.fieldName.toStdString();
        selection.fieldType = field.fieldType.toStdString();
        selection.nickName = field.fieldNickName.toStdString();
        if (selection.nickName == selection.fieldName) {
            selection.nickName.clear();
        }
        selections.push_back(selection);
    }
}

void MsgRecord::ParseArrayPanelData(const MsgRecordStruct::PanelData& panel)
{
    const std::string topic = panel.topicName.toStdString();
    MsgRecordStruct::TopicSelection& selection = topicSelections[topic];
    selection.topicName = topic;
    selection.isChecked = true;
    AddFields(topic, panel.fields);
}

void MsgRecord::ParseKeyValuePanelData(const MsgRecordStruct::PanelData& panel)
{
    for (const MsgRecordStruct::TopicData& data : panel.topics) {
        const std::string topic = data.topicName.toStdString();
        MsgRecordStruct::TopicSelection& selection = topicSelections[topic];
        selection.topicName = topic;
        selection.nickName = data.topicNickName.toStdString() == topic ? std::string() : data.topicNickName.toStdString();
        AddFields(topic, data.fields);
    }
}

} // namespace rviz_plugin

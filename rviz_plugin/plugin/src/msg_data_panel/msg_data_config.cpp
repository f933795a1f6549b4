#include "msg_data_config.h"

#include "foundation/rviz_helpers.h"

#include "msg_data_panel.h"
#include "msg_view_models/table_model.h"
#include "msg_viewer_panel.h"
#include "msg_viewer_widgets/key_value_grid.h"
#include "msg_viewer_widgets/key_value_item.h"
#include "msg_viewer_widgets/key_value_panel.h"
#include "msg_viewer_widgets/key_value_view.h"
#include "msg_viewer_widgets/msg_definition_widget.h"
#include "msg_viewer_widgets/status_bar_view.h"
#include "msg_viewer_widgets/structured_data_view.h"
#include "msg_viewer_widgets/table_view.h"

#include <rviz/panel_dock_widget.h>

#include <QCheckBox>

#include <algorithm>
#include <map>

namespace rviz_plugin {

namespace {

const QString colorType = "[float64](color)";
const char* const colorChannels[] = {"/r", "/g", "/b", "/a"};

} // namespace

MsgDataConfig::MsgDataConfig(const MsgDataPanel& panel, QObject* parent) : QObject(parent), panel(panel) {}

void MsgDataConfig::Save(rviz::Config config) const
{
    rviz::Config list = config.mapMakeChild("panelList");
    const auto& kinds = panel.GetDefinitionWidget()->GetSelectedTypeVec();
    for (int index = 0; index < panel.GetPanelCount(); ++index) {
        rviz::Config child = list.mapMakeChild(QString("panel_%1").arg(index));
        const bool table = index < static_cast<int>(kinds.size()) && kinds[index] == "isSelectedArray";
        child.mapSetValue("hasArrayField", table);
        SavePanel(child, index);
        if (table) {
            SaveArrayPanel(child, index);
        } else {
            SaveKeyValuePanel(child, index);
        }
    }
}

void MsgDataConfig::SavePanel(rviz::Config config, int index) const
{
    config.mapSetValue("isChecked", panel.GetViewerPanel()->IsChecked(index));
    const QCheckBox* box = panel.GetViewerPanel()->GetCheckBox(index);
    config.mapSetValue("panelName", box != nullptr ? box->property("displayText").toString() : QString());
    rviz::Config position = config.mapMakeChild("widgetPosition");
    const QRect rect = panel.GetDock(index)->geometry();
    position.mapSetValue("x", rect.x());
    position.mapSetValue("y", rect.y());
    position.mapSetValue("width", rect.width());
    position.mapSetValue("height", rect.height());
    SaveReeditPanel(config, index);
}

void MsgDataConfig::SaveReeditPanel(rviz::Config config, int index) const
{
    const MsgDefinitionWidget* definition = panel.GetDefinitionWidget();
    rviz::Config reedit = config.mapMakeChild("reeditPanel");
    rviz::Config items = reedit.mapMakeChild("selectedItemMap");
    for (const auto& [topic, fields] : definition->GetSelectedItemMap(index)) {
        rviz::Config topicChild = items.mapMakeChild(QString::fromStdString(topic));
        for (const auto& [field, type] : fields) {
            topicChild.mapSetValue(QString::fromStdString(field), QString::fromStdString(type));
        }
    }
    rviz::Config searches = reedit.mapMakeChild("fieldSearchResult");
    const QMap<QString, QString> terms = definition->GetFieldSearchResult(index);
    for (auto term = terms.begin(); term != terms.end(); ++term) {
        searches.mapSetValue(term.key(), term.value());
    }
    reedit.mapSetValue("selectedArrayName", QString::fromStdString(definition->GetSelectedArrayName(index)));
}

void MsgDataConfig::SaveConstants(rviz::Config field, const ConstantList& constants)
{
    rviz::Config list = field.mapMakeChild("constantList");
    for (int number = 0; number < constants.size(); ++number) {
        list.mapMakeChild(QString("constant_%1").arg(number))
            .mapSetValue(QString::number(constants[number].first), constants[number].second);
    }
}

void MsgDataConfig::SaveField(rviz::Config field, const QString& name, const QString& type, const QString& nickName,
                              const ConstantList& constants)
{
    field.mapSetValue("fieldName", name);
    field.mapSetValue("fieldType", type);
    field.mapSetValue("fieldNickName", nickName);
    SaveConstants(field, constants);
}

int MsgDataConfig::SaveColorChannels(rviz::Config fields, int number, const QString& group, const QString& nickName)
{
    for (const char* channel : colorChannels) {
        SaveField(fields.mapMakeChild(QString("field_%1").arg(number++)), group + channel, colorType, nickName, {});
    }
    return number;
}

void MsgDataConfig::SaveArrayPanel(rviz::Config config, int index) const
{
    const MsgRecord* record = panel.GetRecord(index);
    const TableModel* model = panel.GetView(index)->GetTableView()->GetModel();
    const auto& topics = record->GetTopicFields();
    const std::string topic = topics.empty() ? std::string() : topics.begin()->first;
    if (model == nullptr || model->GetVisibleTitles().isEmpty()) {
        SaveArrayPanelWithoutData(config, index);
        return;
    }
    config.mapSetValue("topicName", QString::fromStdString(topic));
    const QVector<QString> titles = model->GetVisibleTitles();
    // The sort is saved by the column's place among those saved, which is its place after loading.
    const int sorted = model->GetOperatedColumn();
    int sortIndex = -1;
    for (int view = 0; view < titles.size(); ++view) {
        sortIndex = model->LogicalColumn(view) == sorted ? view : sortIndex;
    }
    config.mapSetValue("showStatus", sortIndex < 0 ? 0 : model->GetOperateStatus());
    config.mapSetValue("sortIndex", sortIndex);
    rviz::Config fields = config.mapMakeChild("fieldList");
    const auto types = record->GetFieldsTypes(topic);
    int number = 0;
    for (int view = 0; view < titles.size(); ++view) {
        const QString field = QString::fromStdString(topic) + titles[view];
        if (!ColorGroup(model->GetTitleType(titles[view])).isEmpty()) {
            const std::string nick = record->GetFieldsNickName(topic, (field + "/r").toStdString());
            number = SaveColorChannels(fields, number, field, QString::fromStdString(nick));
            continue;
        }
        const auto type = types.find(field.toStdString());
        SaveField(fields.mapMakeChild(QString("field_%1").arg(number++)), field,
                  type == types.end() ? QString() : QString::fromStdString(type->second),
                  QString::fromStdString(record->GetFieldsNickName(topic, field.toStdString())),
                  model->GetConvertConstantSelected(view));
    }
}

void MsgDataConfig::SaveKeyValuePanel(rviz::Config config, int index) const
{
    const MsgRecord* record = panel.GetRecord(index);
    const QList<KeyValuePanel*>& panels = panel.GetView(index)->GetKeyValueView()->GetKeyValuePanels();
    const bool hasItems = std::any_of(panels.begin(), panels.end(), [](const KeyValuePanel* grid) {
        return !grid->GetKeyValueGrid()->OrderedItems().isEmpty();
    });
    if (!hasItems) {
        SaveKeyValuePanelWithoutData(config, index);
        return;
    }
    rviz::Config topics = config.mapMakeChild("topicList");
    for (int at = 0; at < panels.size(); ++at) {
        rviz::Config topicChild = topics.mapMakeChild(QString("topic_%1").arg(at));
        const StatusBarView* bar = panels[at]->GetStatusBarView();
        const std::string topic = bar->GetTopic().toStdString();
        topicChild.mapSetValue("topicName", bar->GetTopic());
        topicChild.mapSetValue("topicNickName", bar->GetTopicNickName());
        rviz::Config fields = topicChild.mapMakeChild("fieldList");
        const auto types = record->GetFieldsTypes(topic);
        int number = 0;
        for (const KeyValueItem* item : panels[at]->GetKeyValueGrid()->OrderedItems()) {
            const QString key = item->GetOriginalKey();
            const QString group = ColorGroup(key);
            const QString nick = QString::fromStdString(
                record->GetFieldsNickName(topic, (group.isEmpty() ? key : group + "/r").toStdString()));
            if (!group.isEmpty()) {
                number = SaveColorChannels(fields, number, group, nick);
                continue;
            }
            const auto type = types.find(key.toStdString());
            SaveField(fields.mapMakeChild(QString("field_%1").arg(number++)), key,
                      type == types.end() ? QString() : QString::fromStdString(type->second), nick,
                      item->GetConvertConstants());
        }
    }
}

void MsgDataConfig::SaveFieldList(rviz::Config fields, const QVector<MsgRecordStruct::FieldData>& list)
{
    for (int number = 0; number < list.size(); ++number) {
        const MsgRecordStruct::FieldData& field = list[number];
        SaveField(fields.mapMakeChild(QString("field_%1").arg(number)), field.fieldName, field.fieldType,
                  field.fieldNickName, field.constants);
    }
}

QVector<MsgRecordStruct::FieldData> MsgDataConfig::SelectedFields(const MsgRecord& record, const std::string& topic)
{
    QVector<MsgRecordStruct::FieldData> list;
    const auto topics = record.GetTopicFields();
    const auto found = topics.find(topic);
    if (found == topics.end()) {
        return list;
    }
    const auto types = record.GetFieldsTypes(topic);
    for (const std::string& field : found->second) {
        MsgRecordStruct::FieldData data;
        data.fieldName = QString::fromStdString(field);
        const auto type = types.find(field);
        data.fieldType = type == types.end() ? QString() : QString::fromStdString(type->second);
        data.fieldNickName = QString::fromStdString(record.GetFieldsNickName(topic, field));
        list.push_back(data);
    }
    return list;
}

void MsgDataConfig::SaveArrayPanelWithoutData(rviz::Config config, int index) const
{
    if (const MsgRecordStruct::PanelData* loaded = panel.GetLoadedPanel(index)) {
        config.mapSetValue("topicName", loaded->topicName);
        config.mapSetValue("showStatus", loaded->showStatus);
        config.mapSetValue("sortIndex", loaded->sortIndex);
        SaveFieldList(config.mapMakeChild("fieldList"), loaded->fields);
        return;
    }
    const MsgRecord* record = panel.GetRecord(index);
    const auto& topics = record->GetTopicFields();
    const std::string topic = topics.empty() ? std::string() : topics.begin()->first;
    config.mapSetValue("topicName", QString::fromStdString(topic));
    config.mapSetValue("showStatus", 0);
    config.mapSetValue("sortIndex", -1);
    SaveFieldList(config.mapMakeChild("fieldList"), SelectedFields(*record, topic));
}

void MsgDataConfig::SaveKeyValuePanelWithoutData(rviz::Config config, int index) const
{
    rviz::Config topics = config.mapMakeChild("topicList");
    if (const MsgRecordStruct::PanelData* loaded = panel.GetLoadedPanel(index)) {
        for (int at = 0; at < loaded->topics.size(); ++at) {
            rviz::Config topicChild = topics.mapMakeChild(QString("topic_%1").arg(at));
            topicChild.mapSetValue("topicName", loaded->topics[at].topicName);
            topicChild.mapSetValue("topicNickName", loaded->topics[at].topicNickName);
            SaveFieldList(topicChild.mapMakeChild("fieldList"), loaded->topics[at].fields);
        }
        return;
    }
    const MsgRecord* record = panel.GetRecord(index);
    int at = 0;
    for (const auto& [topic, fields] : record->GetTopicFields()) {
        rviz::Config topicChild = topics.mapMakeChild(QString("topic_%1").arg(at++));
        topicChild.mapSetValue("topicName", QString::fromStdString(topic));
        topicChild.mapSetValue("topicNickName", QString::fromStdString(record->GetTopicNickName(topic)));
        SaveFieldList(topicChild.mapMakeChild("fieldList"), SelectedFields(*record, topic));
    }
}

std::vector<MsgRecordStruct::PanelData> MsgDataConfig::Load(const rviz::Config& config)
{
    std::vector<MsgRecordStruct::PanelData> panels;
    for (const auto& [number, child] : NumberedChildren(config.mapGetChild("panelList"), "panel_")) {
        panels.push_back(LoadPanel(child));
    }
    return panels;
}

MsgRecordStruct::PanelData MsgDataConfig::LoadPanel(const rviz::Config& config)
{
    MsgRecordStruct::PanelData panel;
    panel.hasArrayField = ConfigBool(config, "hasArrayField");
    panel.isChecked = ConfigBool(config, "isChecked");
    panel.panelName = ConfigString(config, "panelName");
    const rviz::Config position = config.mapGetChild("widgetPosition");
    panel.widgetPosition = QRect(ConfigInt(position, "x"), ConfigInt(position, "y"), ConfigInt(position, "width"),
                                 ConfigInt(position, "height"));
    LoadReeditPanel(config, panel);
    if (panel.hasArrayField) {
        LoadArrayPanel(config, panel);
    } else {
        LoadKeyValuePanel(config, panel);
    }
    return panel;
}

void MsgDataConfig::LoadReeditPanel(const rviz::Config& config, MsgRecordStruct::PanelData& panel)
{
    const rviz::Config reedit = config.mapGetChild("reeditPanel");
    const rviz::Config items = reedit.mapGetChild("selectedItemMap");
    for (rviz::Config::MapIterator topic = items.mapIterator(); topic.isValid(); topic.advance()) {
        auto& fields = panel.selectedItemMap[topic.currentKey().toStdString()];
        const rviz::Config topicChild = topic.currentChild();
        for (rviz::Config::MapIterator field = topicChild.mapIterator(); field.isValid(); field.advance()) {
            fields.emplace_back(field.currentKey().toStdString(),
                                field.currentChild().getValue().toString().toStdString());
        }
    }
    const rviz::Config searches = reedit.mapGetChild("fieldSearchResult");
    for (rviz::Config::MapIterator term = searches.mapIterator(); term.isValid(); term.advance()) {
        panel.fieldSearchResult[term.currentKey()] = term.currentChild().getValue().toString();
    }
    panel.selectedArrayName = ConfigString(reedit, "selectedArrayName").toStdString();
}

void MsgDataConfig::LoadArrayPanel(const rviz::Config& config, MsgRecordStruct::PanelData& panel)
{
    panel.topicName = ConfigString(config, "topicName");
    panel.showStatus = ConfigInt(config, "showStatus");
    panel.sortIndex = ConfigInt(config, "sortIndex", -1);
    panel.fields = LoadFields(config.mapGetChild("fieldList"));
}

void MsgDataConfig::LoadKeyValuePanel(const rviz::Config& config, MsgRecordStruct::PanelData& panel)
{
    for (const auto& [number, child] : NumberedChildren(config.mapGetChild("topicList"), "topic_")) {
        MsgRecordStruct::TopicData topic;
        topic.topicName = ConfigString(child, "topicName");
        topic.topicNickName = ConfigString(child, "topicNickName");
        topic.fields = LoadFields(child.mapGetChild("fieldList"));
        panel.topics.push_back(topic);
    }
}

QVector<MsgRecordStruct::FieldData> MsgDataConfig::LoadFields(const rviz::Config& config)
{
    QVector<MsgRecordStruct::FieldData> fields;
    for (const auto& [number, child] : NumberedChildren(config, "field_")) {
        fields.push_back(LoadField(child));
    }
    return fields;
}

MsgRecordStruct::FieldData MsgDataConfig::LoadField(const rviz::Config& config)
{
    MsgRecordStruct::FieldData field;
    field.fieldName = ConfigString(config, "fieldName");
    field.fieldType = ConfigString(config, "fieldType");
    field.fieldNickName = ConfigString(config, "fieldNickName");
    for (const auto& [number, child] : NumberedChildren(config.mapGetChild("constantList"), "constant_")) {
        for (rviz::Config::MapIterator constant = child.mapIterator(); constant.isValid(); constant.advance()) {
            field.constants.push_back({constant.currentKey().toInt(), constant.currentChild().getValue().toString()});
        }
    }
    return field;
}

} // namespace rviz_plugin

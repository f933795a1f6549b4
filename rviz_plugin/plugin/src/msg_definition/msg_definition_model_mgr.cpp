#include "msg_definition_model_mgr.h"

#include "msg_viewer_panel/viewer_log.h"

#include <QJsonObject>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStringList>

#include <algorithm>

namespace rviz_plugin {

namespace {

const char* const nestedArrayTip = "The selection of nested array fields is not supported at present.";

QJsonObject ItemJson(const QAbstractItemModel* model, const QModelIndex& index)
{
    return model->data(index, Qt::EditRole).toJsonObject();
}

// Sums one child's state into the flags that decide its parent.
void AnalysisItemState(int state, bool& hasChecked, bool& hasUnchecked, int& disabledCount)
{
    switch (state) {
    case Unchecked:
    case DisabledUnchecked:
    case NotSelectable:
        hasUnchecked = true;
        break;
    case Checked:
    case DisabledChecked:
        hasChecked = true;
        break;
    default:
        hasChecked = true;
        hasUnchecked = true;
        break;
    }
    if (state >= DisabledUnchecked) {
        ++disabledCount;
    }
}

int DecideParentState(bool hasChecked, bool hasUnchecked, int count, int disabledCount)
{
    int state = Unchecked;
    if (hasChecked && !hasUnchecked) {
        state = Checked;
    } else if (hasChecked && hasUnchecked) {
        state = PartiallyChecked;
    }
    return disabledCount == count ? state + 3 : state;
}

void SetFieldItemInfo(QStandardItem* item, const TopicMsg& field, const QString& topic)
{
    const QString name = QString::fromStdString(field.GetName()) + (field.GetArrayProperty() ? "[]" : "");
    const QString type = "[" + QString::fromStdString(field.GetType()) + "]";
    const std::string fullName = field.GetFullName();
    QJsonObject json;
    json["top"] = topic;
    json["name"] = name;
    json["type"] = type;
    json["fullname"] = QString::fromStdString(fullName);
    json["fulltype"] = QString::fromStdString(field.GetFullType());
    item->setData(json, Qt::EditRole);
    item->setData(name + type, Qt::ToolTipRole);
    item->setData(field.GetArrayProperty() ? ArrayField : PlainField, DataTypeRole);
    item->setData(MsgDefinitionModelMgr::FilterKey(fullName), FilterKeyRole);
    item->setEditable(false);
}

bool IsParentArrayFields(const TopicMsg& field)
{
    for (const TopicMsg* parent = field.GetParent(); parent != nullptr; parent = parent->GetParent()) {
        if (parent->GetArrayProperty()) {
            return true;
        }
    }
    return false;
}

} // namespace

MsgDefinitionModelMgr::MsgDefinitionModelMgr(QObject* parent) : QObject(parent) {}

MsgDefinitionModelMgr::~MsgDefinitionModelMgr()
{
    for (auto& [topic, tree] : topicMap) {
        delete tree;
    }
}

void MsgDefinitionModelMgr::Initialize()
{
    topicModel = new QStandardItemModel(this);
    topicModel->setObjectName("topicModel");
    fieldModel = new QStandardItemModel(this);
    fieldModel->setObjectName("fieldModel");
}

QStandardItemModel* MsgDefinitionModelMgr::GetModel(DefinitionModelType type) const
{
    return type == TopicModelType ? topicModel : fieldModel;
}

QString MsgDefinitionModelMgr::FilterKey(const std::string& fullName)
{
    QStringList parts = QString::fromStdString(fullName).split('/');
    parts.erase(parts.begin(), parts.begin() + std::min<int>(2, parts.size()));
    return parts.join(QString());
}

int MsgDefinitionModelMgr::GetSelectedFieldCount(const QString& topic) const
{
    if (topic.isEmpty()) {
        int count = 0;
        for (const auto& [name, fields] : selectedMaps) {
            count += static_cast<int>(fields->size());
        }
        return count;
    }
    const auto found = selectedMaps.find(topic);
    return found == selectedMaps.end() ? 0 : static_cast<int>(found->second->size());
}

DefinitionEditMode MsgDefinitionModelMgr::GetCurrentEditMode() const
{
    if (!selectedArrayTopic.isEmpty()) {
        return GetSelectedFieldCount(selectedArrayTopic) < maxTableColumns ? ArraySelected : ArrayColumnLimitReached;
    }
    const int count = GetSelectedFieldCount();
    if (count < maxTableColumns) {
        return FreeSelection;
    }
    return count < maxKeyValuePairs ? ColumnLimitReached : KeyValueLimitReached;
}

DefinitionDisableType MsgDefinitionModelMgr::GetDisableType(const QString& topic) const
{
    switch (GetCurrentEditMode()) {
    case ColumnLimitReached:
        return DisableArrays;
    case ArraySelected:
        return topic == selectedArrayTopic ? DisableOtherArrays : DisableAll;
    case KeyValueLimitReached:
        return DisableUnchecked;
    case ArrayColumnLimitReached:
        return topic == selectedArrayTopic ? DisableUnchecked : DisableAll;
    default:
        return DisableNone;
    }
}

void MsgDefinitionModelMgr::SetSelectedArray(const QString& topic, const QString& name)
{
    selectedArrayTopic = topic;
    selectedArrayName = name;
}

int MsgDefinitionModelMgr::GetCheckState(const QAbstractItemModel* model, const QModelIndex& index)
{
    if (model == nullptr || !index.isValid()) {
        return DisabledUnchecked;
    }
    return model->data(index, CheckStateValueRole).toInt();
}

void MsgDefinitionModelMgr::SetCheckState(QAbstractItemModel* model, const QModelIndex& index, int state)
{
    const bool blocked = isStateChangedBlocked;
    isStateChangedBlocked = true;
    model->setData(index, MapState(state), Qt::CheckStateRole);
    model->setData(index, state, CheckStateValueRole);
    isStateChangedBlocked = blocked;
}

bool MsgDefinitionModelMgr::IsArray(const QAbstractItemModel* model, const QModelIndex& index)
{
    return model->data(index, DataTypeRole).toInt() == ArrayField;
}

QString MsgDefinitionModelMgr::GetFullName(const QAbstractItemModel* model, const QModelIndex& index)
{
    return ItemJson(model, index)["fullname"].toString();
}

void MsgDefinitionModelMgr::UpdateItemState(int type, QAbstractItemModel* model, const QModelIndex& index)
{
    const int state = GetCheckState(model, index);
    if (state == NotSelectable) {
        return;
    }
    const int enabled = EnabledState(state);
    bool disable = false;
    switch (type) {
    case DisableOtherArrays:
        disable = IsArray(model, index) && enabled != Checked;
        break;
    case DisableArrays:
        disable = IsArray(model, index);
        break;
    case DisableUnchecked:
        disable = enabled != Checked;
        break;
    case DisableAll:
        disable = true;
        break;
    default:
        break;
    }
    const int next = disable ? DisabledState(enabled) : enabled;
    if (next != state) {
        SetCheckState(model, index, next);
    }
}

bool MsgDefinitionModelMgr::IsDisableArray(const QAbstractItemModel* model, const QModelIndex& index, int type) const
{
    if (!IsArray(model, index)) {
        return false;
    }
    if (type == DisableArrays) {
        return true;
    }
    return type == DisableOtherArrays && GetFullName(model, index) != selectedArrayName;
}

void MsgDefinitionModelMgr::UpdateAllItemState(int type, QAbstractItemModel* model, const QModelIndex& parent)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (model->hasChildren(child)) {
            UpdateAllItemState(IsDisableArray(model, child, type) ? DisableAll : type, model, child);
        } else {
            UpdateItemState(type, model, child);
        }
    }
}

int MsgDefinitionModelMgr::DecideState(const QAbstractItemModel* model, const QModelIndex& parent)
{
    bool hasChecked = false;
    bool hasUnchecked = false;
    int disabledCount = 0;
    const int count = model->rowCount(parent);
    for (int row = 0; row < count; ++row) {
        AnalysisItemState(GetCheckState(model, model->index(row, 0, parent)), hasChecked, hasUnchecked,
                          disabledCount);
    }
    return DecideParentState(hasChecked, hasUnchecked, count, disabledCount);
}

int MsgDefinitionModelMgr::GetSiblingState(const QAbstractItemModel* model, const QModelIndex& index) const
{
    const QModelIndex parent = index.parent();
    if (!parent.isValid()) {
        return GetCheckState(model, index);
    }
    for (int row = 0; row < model->rowCount(parent); ++row) {
        if (GetCheckState(model, model->index(row, 0, parent)) == PartiallyChecked) {
            return PartiallyChecked;
        }
    }
    return DecideState(model, parent);
}

void MsgDefinitionModelMgr::UpdateParentState(QAbstractItemModel* model, const QModelIndex& index)
{
    for (QModelIndex child = index; child.parent().isValid(); child = child.parent()) {
        SetCheckState(model, child.parent(), GetSiblingState(model, child));
    }
}

int MsgDefinitionModelMgr::RecoverFields(QAbstractItemModel* model, const QModelIndex& parent)
{
    for (int row = model->rowCount(parent) - 1; row >= 0; --row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (model->hasChildren(child)) {
            SetCheckState(model, child, RecoverFields(model, child));
        }
    }
    return DecideState(model, parent);
}

QModelIndex MsgDefinitionModelMgr::GetSelectedArrayIdx(const QAbstractItemModel* model, const QModelIndex& index) const
{
    for (QModelIndex item = index; item.isValid(); item = item.parent()) {
        if (IsArray(model, item)) {
            return item;
        }
    }
    return QModelIndex();
}

QModelIndex MsgDefinitionModelMgr::FindArrayIndex(const QAbstractItemModel* model, const QModelIndex& parent) const
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (GetFullName(model, child) == selectedArrayName && IsArray(model, child)) {
            return child;
        }
        const QModelIndex found = FindArrayIndex(model, child);
        if (found.isValid()) {
            return found;
        }
    }
    return QModelIndex();
}

void MsgDefinitionModelMgr::UpdateAllFieldState(QAbstractItemModel* model, int oldMode)
{
    if (GetCurrentEditMode() != oldMode) {
        UpdateAllFieldStateForce(model);
    }
}

void MsgDefinitionModelMgr::UpdateAllFieldStateForce(QAbstractItemModel* model)
{
    static const int typeByMode[] = {DisableNone, DisableArrays, DisableOtherArrays, DisableUnchecked,
                                     DisableUnchecked};
    UpdateAllItemState(typeByMode[GetCurrentEditMode()], model, QModelIndex());
    RecoverFields(model, QModelIndex());
}

void MsgDefinitionModelMgr::ClearSelectedArrayIfUnticked(QAbstractItemModel* model, const QModelIndex& arrayIndex,
                                                         int oldMode)
{
    if (arrayIndex.isValid() && GetCheckState(model, arrayIndex) == Unchecked &&
        GetFullName(model, arrayIndex) == selectedArrayName) {
        SetSelectedArray(QString(), QString());
        UpdateAllFieldState(model, oldMode);
    }
}

int MsgDefinitionModelMgr::SetFieldState(const QString& topic, int state, QAbstractItemModel* model,
                                         const QModelIndex& index)
{
    if (model == nullptr || !index.isValid() || (state != Unchecked && state != Checked)) {
        ViewerLog("Invalid index, check state or model");
        return Unchecked;
    }
    const QModelIndex arrayIndex = GetSelectedArrayIdx(model, index);
    if (state == Checked && arrayIndex.isValid()) {
        const int mode = GetCurrentEditMode();
        SetSelectedArray(topic, GetFullName(model, arrayIndex));
        SetCheckState(model, arrayIndex, Checked);
        UpdateAllFieldState(model, mode);
    }
    const int mode = GetCurrentEditMode();
    const int result = SetFieldStateInner(topic, state, model, index);
    if (state == Unchecked) {
        ClearSelectedArrayIfUnticked(model, arrayIndex, mode);
    }
    return result;
}

int MsgDefinitionModelMgr::SetFieldStateInner(const QString& topic, int state, QAbstractItemModel* model,
                                              const QModelIndex& index)
{
    if (state == Checked && selectedMaps.count(topic) == 0) {
        selectedMaps[topic] = std::make_shared<FieldTypeMap>();
    }
    const auto found = selectedMaps.find(topic);
    if (found == selectedMaps.end()) {
        ViewerLog("Invalid topic name of selected item map");
        return Unchecked;
    }
    const int mode = GetCurrentEditMode();
    SetCheckState(model, index, state);
    const QJsonObject json = ItemJson(model, index);
    const std::string field = json["fullname"].toString().toStdString();
    if (state == Checked) {
        found->second->emplace(field, json["fulltype"].toString().toStdString());
    } else {
        found->second->erase(field);
        if (found->second->empty()) {
            selectedMaps.erase(found);
        }
    }
    UpdateParentState(model, index);
    UpdateAllFieldState(model, mode);
    return state;
}

int MsgDefinitionModelMgr::SetChildrenState(const QString& topic, int state, QAbstractItemModel* model,
                                            const QModelIndex& parent)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (IsDisabledState(GetCheckState(model, child)) || (state == Checked && IsArray(model, child))) {
            continue;
        }
        if (model->hasChildren(child)) {
            SetSubFieldStateInner(topic, state, model, child);
        } else {
            SetFieldStateInner(topic, state, model, child);
        }
    }
    return DecideState(model, parent);
}

int MsgDefinitionModelMgr::SetSubFieldStateInner(const QString& topic, int state, QAbstractItemModel* model,
                                                 const QModelIndex& index)
{
    if (GetCheckState(model, index) == NotSelectable) {
        return Unchecked;
    }
    return SetChildrenState(topic, state, model, index);
}

int MsgDefinitionModelMgr::SetSubFieldState(const QString& topic, int state, QAbstractItemModel* model,
                                            const QModelIndex& index)
{
    if (model == nullptr || !index.isValid() || (state != Unchecked && state != Checked)) {
        ViewerLog("Invalid data model, index or check state");
        return Unchecked;
    }
    QModelIndex arrayIndex = GetSelectedArrayIdx(model, index);
    if (state == Checked && arrayIndex.isValid()) {
        const int mode = GetCurrentEditMode();
        SetSelectedArray(topic, GetFullName(model, arrayIndex));
        SetCheckState(model, arrayIndex, Checked);
        UpdateAllFieldState(model, mode);
    }
    if (state == Unchecked && !selectedArrayName.isEmpty() && selectedArrayName.contains(GetFullName(model, index))) {
        arrayIndex = IsArray(model, index) && GetFullName(model, index) == selectedArrayName
                         ? index
                         : FindArrayIndex(model, index);
    }
    const int mode = GetCurrentEditMode();
    const int result = SetSubFieldStateInner(topic, state, model, index);
    if (state == Unchecked) {
        ClearSelectedArrayIfUnticked(model, arrayIndex, mode);
    }
    return result;
}

int MsgDefinitionModelMgr::SetAllSubFieldState(const QString& topic, int state, QAbstractItemModel* model)
{
    if (model == nullptr) {
        ViewerLog("Invalid model");
        return Unchecked;
    }
    const int mode = GetCurrentEditMode();
    const int result = SetChildrenState(topic, state, model, QModelIndex());
    if (state == Unchecked && selectedArrayTopic == topic && GetSelectedFieldCount(topic) == 0) {
        SetSelectedArray(QString(), QString());
        UpdateAllFieldState(model, mode);
        return DecideState(model, QModelIndex());
    }
    return result;
}

void MsgDefinitionModelMgr::SetTopicState(QAbstractItemModel* model, const QModelIndex& topicIndex, int state)
{
    if (model == nullptr || !topicIndex.isValid()) {
        ViewerLog("Invalid model or index");
        return;
    }
    SetCheckState(model, topicIndex, state);
}

void MsgDefinitionModelMgr::SetTopicItemState(const QModelIndex& topicIndex, QAbstractItemModel* fieldModelIn)
{
    if (fieldModelIn == nullptr) {
        ViewerLog("Field model hasn't yet initialized");
        return;
    }
    SetTopicState(const_cast<QAbstractItemModel*>(topicIndex.model()), topicIndex,
                  DecideState(fieldModelIn, QModelIndex()));
}

void MsgDefinitionModelMgr::UpdateAllTopicState(QAbstractItemModel* model, int oldMode, const QModelIndex& current)
{
    if (GetCurrentEditMode() != oldMode) {
        UpdateAllTopicStateForce(model, current);
    }
}

void MsgDefinitionModelMgr::UpdateAllTopicStateForce(QAbstractItemModel* model, const QModelIndex& current)
{
    if (model == nullptr) {
        ViewerLog("Topic model is nullptr");
        return;
    }
    const int mode = GetCurrentEditMode();
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        const int state = GetCheckState(model, index);
        const int enabled = EnabledState(state);
        int next = enabled;
        if (mode == KeyValueLimitReached) {
            next = enabled == Unchecked ? DisabledUnchecked : enabled;
        } else if (mode == ArraySelected || mode == ArrayColumnLimitReached) {
            next = index.row() == current.row() && current.isValid() ? enabled : DisabledState(enabled);
        }
        if (next != state) {
            SetCheckState(model, index, next);
        }
    }
}

void MsgDefinitionModelMgr::RecoverFieldItems(const QString& topic, int type, QAbstractItemModel* model,
                                              const QModelIndex& parent)
{
    if (model == nullptr) {
        ViewerLog("Invalid model");
        return;
    }
    const auto found = selectedMaps.find(topic);
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (model->hasChildren(child)) {
            RecoverFieldItems(topic, IsDisableArray(model, child, type) ? DisableAll : type, model, child);
            continue;
        }
        const QJsonObject json = ItemJson(model, child);
        bool ticked = false;
        if (found != selectedMaps.end()) {
            const auto field = found->second->find(json["fullname"].toString().toStdString());
            ticked = field != found->second->end() && field->second == json["fulltype"].toString().toStdString();
        }
        const int state = ticked ? Checked : Unchecked;
        if (GetCheckState(model, child) != state) {
            SetCheckState(model, child, state);
        }
        UpdateItemState(type, model, child);
    }
}

void MsgDefinitionModelMgr::GetModelCount(int& checked, int& partial, int& total, const QAbstractItemModel* model,
                                          const QModelIndex& parent)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (model->hasChildren(child)) {
            GetModelCount(checked, partial, total, model, child);
            continue;
        }
        const int state = EnabledState(GetCheckState(model, child));
        checked += state == Checked ? 1 : 0;
        partial += state == PartiallyChecked ? 1 : 0;
        ++total;
    }
}

bool MsgDefinitionModelMgr::FindEnableItem(const QAbstractItemModel* model, const QModelIndex& parent)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (model->hasChildren(child) ? FindEnableItem(model, child) : !IsDisabledState(GetCheckState(model, child))) {
            return true;
        }
    }
    return false;
}

void MsgDefinitionModelMgr::CreateFieldTree(const TopicMsg& msg, QStandardItemModel* model, QStandardItem* parentItem)
{
    const QString topic = QString::fromStdString(msg.GetTopicName());
    for (const TopicMsg* field : msg.GetFields()) {
        if (field == nullptr) {
            ViewerLog("Invalid field message or model");
            continue;
        }
        auto* item = new QStandardItem();
        SetFieldItemInfo(item, *field, topic);
        if (field->GetArrayProperty() && IsParentArrayFields(*field)) {
            item->setData(NotSelectable, CheckStateValueRole);
            item->setData(Qt::Unchecked, Qt::CheckStateRole);
            item->setCheckable(false);
            item->setData(nestedArrayTip, Qt::ToolTipRole);
        } else {
            item->setCheckable(true);
            item->setData(Qt::Unchecked, Qt::CheckStateRole);
            item->setData(Unchecked, CheckStateValueRole);
            if (field->HasChildren()) {
                CreateFieldTree(*field, model, item);
            }
        }
        if (parentItem != nullptr) {
            parentItem->appendRow(item);
        } else {
            model->appendRow(item);
        }
    }
}

QStandardItemModel* MsgDefinitionModelMgr::BuildFieldModel(const QString& topic)
{
    const auto found = topicMap.find(topic.toStdString());
    if (found == topicMap.end()) {
        ViewerLog("Invalid topic name");
        return nullptr;
    }
    auto* model = new QStandardItemModel();
    CreateFieldTree(*found->second, model, nullptr);
    return model;
}

bool MsgDefinitionModelMgr::RebuildFieldModel(const QString& topic)
{
    if (fieldModel == nullptr) {
        ViewerLog("Field model hasn't yet initialized");
        return false;
    }
    const auto found = topicMap.find(topic.toStdString());
    fieldModel->clear();
    if (found == topicMap.end()) {
        ViewerLog("Failed to rebuild field model, focusTopicName:" + topic.toStdString());
        return false;
    }
    if (!found->second->HasChildren()) {
        ViewerLog("Empty message", Orsa::LogLevel::Info);
    }
    CreateFieldTree(*found->second, fieldModel, nullptr);
    return true;
}

void MsgDefinitionModelMgr::ResetFieldModel()
{
    if (fieldModel != nullptr) {
        fieldModel->clear();
    }
}

void MsgDefinitionModelMgr::ResetModel(const std::map<std::string, FieldTypePairs>& selection,
                                       const std::string& arrayName)
{
    topicModel->clear();
    fieldModel->clear();
    for (auto& [topic, tree] : topicMap) {
        delete tree;
    }
    topicMap.clear();
    recoverArrayName = arrayName;
    recoverFocusTopic.clear();
    focusTopic.clear();
    selectedMaps.clear();
    SetSelectedArray(QString(), QString());
    recoverMaps.clear();
    for (const auto& [topic, pairs] : selection) {
        auto fields = std::make_shared<FieldTypeMap>();
        for (const auto& [field, type] : pairs) {
            (*fields)[field] = type;
        }
        recoverMaps[topic] = fields;
    }
}

bool MsgDefinitionModelMgr::UpdateTopicMap(const DeserializedMsgs& deserializedMsgs)
{
    std::vector<std::string> newTopics;
    for (const auto& [topic, msg] : deserializedMsgs) {
        if (msg == nullptr || topicMap.count(topic) != 0 || !msg->flatMessage.schema) {
            continue;
        }
        const RosMsgParser::MessageSchema& schema = *msg->flatMessage.schema;
        const std::string type = schema.rootMessage ? schema.rootMessage->type().baseName() : std::string();
        topicMap[topic] = TraverseMsgTree(topic, type, schema.messageTree);
        newTopics.push_back(topic);
    }
    if (newTopics.empty()) {
        return true;
    }
    for (const std::string& topic : newTopics) {
        const auto saved = recoverMaps.find(topic);
        if (saved != recoverMaps.end()) {
            RecoverSelectedMap(*topicMap[topic], *saved->second, recoverArrayName);
        }
    }
    if (!UpdateTopicModel(newTopics)) {
        ViewerLog("Update topic model failed.");
        return false;
    }
    return true;
}

void MsgDefinitionModelMgr::RecoverSelectedMap(const TopicMsg& node, const FieldTypeMap& saved,
                                               const std::string& arrayName)
{
    for (const TopicMsg* child : node.GetFields()) {
        const std::string fullName = child->GetFullName();
        if (fullName == arrayName && child->GetArrayProperty()) {
            SetSelectedArray(QString::fromStdString(child->GetTopicName()), QString::fromStdString(arrayName));
        }
        if (child->HasChildren()) {
            RecoverSelectedMap(*child, saved, arrayName);
            continue;
        }
        const auto field = saved.find(fullName);
        if (field == saved.end() || field->second != child->GetFullType()) {
            continue;
        }
        if (!arrayName.empty() && fullName.find(arrayName) != std::string::npos && selectedArrayTopic.isEmpty()) {
            continue;
        }
        auto& fields = selectedMaps[QString::fromStdString(child->GetTopicName())];
        if (!fields) {
            fields = std::make_shared<FieldTypeMap>();
        }
        (*fields)[fullName] = field->second;
    }
}

bool MsgDefinitionModelMgr::UpdateTopicModel(const std::vector<std::string>& newTopics)
{
    if (topicModel == nullptr) {
        ViewerLog("Invalid topic model");
        return false;
    }
    std::vector<std::string> sorted = newTopics;
    std::sort(sorted.begin(), sorted.end());
    const int first = topicModel->rowCount();
    for (const std::string& topic : sorted) {
        const QString name = QString::fromStdString(topic);
        const QString type = "[" + QString::fromStdString(topicMap[topic]->GetType()) + "]";
        auto* item = new QStandardItem();
        QJsonObject json;
        json["name"] = name;
        json["type"] = type;
        item->setData(json, Qt::EditRole);
        item->setData(name + type, Qt::ToolTipRole);
        item->setData(name, FilterKeyRole);
        item->setData(Unchecked, CheckStateValueRole);
        item->setCheckable(true);
        item->setData(Qt::Unchecked, Qt::CheckStateRole);
        item->setEditable(false);
        topicModel->appendRow(item);
        if (recoverFocusTopic.isEmpty() && selectedMaps.count(name) != 0) {
            recoverFocusTopic = name;
        }
    }
    Q_EMIT SignalModelChanged(QModelIndex(), first, topicModel->rowCount() - 1, recoverFocusTopic);
    return true;
}

void MsgDefinitionModelMgr::GetSelectedItemMap(std::map<std::string, FieldTypePairs>& out) const
{
    out.clear();
    for (const auto& [topic, fields] : selectedMaps) {
        FieldTypePairs& pairs = out[topic.toStdString()];
        for (const auto& [field, type] : *fields) {
            pairs.emplace_back(field, type);
        }
    }
}

} // namespace rviz_plugin

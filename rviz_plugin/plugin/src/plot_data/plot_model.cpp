#include "plot_model.h"

#include "plot_log.h"

namespace rviz_plugin {

PlotModel::~PlotModel()
{
    Clear();
}

void PlotModel::Clear()
{
    for (auto& [topic, root] : topicMsgs) {
        delete root;
    }
    topicMsgs.clear();
    fieldList.clear();
    fieldMsgs.clear();
}

void PlotModel::SetupModelData(const DeserializedMsgs& msgs)
{
    UpdateTopicMsg(msgs);
}

bool PlotModel::IsSendTopicChanged(const DeserializedMsgs& msgs) const
{
    for (const auto& [topic, msg] : msgs) {
        if (msg != nullptr && msg->flatMessage.schema && topicMsgs.count(topic) == 0) {
            return true;
        }
    }
    return false;
}

void PlotModel::UpdateTopicMsg(const DeserializedMsgs& msgs)
{
    if (!topicMsgs.empty() && !IsSendTopicChanged(msgs)) {
        return;
    }
    Clear();
    for (const auto& [topic, msg] : msgs) {
        if (msg == nullptr || !msg->flatMessage.schema) {
            continue;
        }
        const RosMsgParser::MessageSchema& schema = *msg->flatMessage.schema;
        const std::string type = schema.rootMessage ? schema.rootMessage->type().baseName() : std::string();
        PlotTopicMsg* root = TraverseMsgTree(topic, type, schema.messageTree);
        topicMsgs[topic] = root;
        SaveField(root);
    }
}

bool PlotModel::HasParentArray(const PlotTopicMsg* node)
{
    int arrays = 0;
    for (const PlotTopicMsg* at = node; at != nullptr; at = at->GetParent()) {
        arrays += at->GetArrayProperty() ? 1 : 0;
    }
    if (arrays >= 2) {
        PlotLog("Nest array not support, field name:" + node->GetFullName(), Orsa::LogLevel::Info);
        return true;
    }
    return false;
}

void PlotModel::SaveField(const PlotTopicMsg* node)
{
    if (node == nullptr) {
        PlotLog("Invalid node");
        return;
    }
    for (const PlotTopicMsg* child : node->GetFields()) {
        if (child->HasChildren()) {
            SaveField(child);
            continue;
        }
        if (HasParentArray(child) || child->GetType() == "string") {
            continue;
        }
        const std::string name = child->GetFullName();
        fieldList.append(QString::fromStdString(name));
        fieldMsgs[name] = child;
    }
}

const PlotTopicMsg* PlotModel::GetTopicMsg(const std::string& path) const
{
    const auto found = fieldMsgs.find(path);
    if (found != fieldMsgs.end()) {
        return found->second;
    }
    if (!path.empty()) {
        PlotLog("Invalid field name:" + path);
    }
    return nullptr;
}

} // namespace rviz_plugin

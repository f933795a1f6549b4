#include "topic_msg.h"

namespace rviz_plugin {

TopicMsg::TopicMsg(const std::string& fieldName, const std::string& fieldType) : name(fieldName), type(fieldType)
{
    if (type == "time") {
        Addfield(new TopicMsg("nsecs", "int32"));
        Addfield(new TopicMsg("secs", "int32"));
    }
}

TopicMsg::~TopicMsg()
{
    for (TopicMsg* child : fields) {
        delete child;
    }
}

void TopicMsg::Addfield(TopicMsg* child)
{
    if (child == nullptr) {
        return;
    }
    child->SetParent(this);
    fields.push_back(child);
}

std::string TopicMsg::GetFullName() const
{
    return parent == nullptr ? name : parent->GetFullName() + "/" + name;
}

std::string TopicMsg::GetTopicName() const
{
    return parent == nullptr ? name : parent->GetTopicName();
}

std::string TopicMsg::GetFullType() const
{
    const std::string bracketed = isArray ? "[" + type + "[]]" : "[" + type + "]";
    if (parent == nullptr) {
        return bracketed;
    }
    if (parent->type.find("ColorRGBA") != std::string::npos) {
        return bracketed + "(color)";
    }
    if (parent->type.find("time") != std::string::npos) {
        return "time";
    }
    return bracketed;
}

TopicMsg* TraverseMsgTree(const std::string& name, const std::string& type, const RosMsgParser::MessageTreeNode& node)
{
    auto* topicMsg = new TopicMsg(name, type);
    if (node.message == nullptr) {
        return topicMsg;
    }
    std::size_t used = 0;
    for (const RosMsgParser::ROSField& field : node.message->fields()) {
        if (field.isConstant()) {
            continue;
        }
        const std::string fieldType = field.type().baseName();
        TopicMsg* child = nullptr;
        if (used < node.children.size() && node.children[used].message != nullptr &&
            node.children[used].message->type().baseName() == fieldType) {
            child = TraverseMsgTree(field.name(), fieldType, node.children[used]);
            ++used;
        } else {
            child = new TopicMsg(field.name(), fieldType);
        }
        child->SetArray(field.isArray());
        topicMsg->Addfield(child);
    }
    return topicMsg;
}

} // namespace rviz_plugin

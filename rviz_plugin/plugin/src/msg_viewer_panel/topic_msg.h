#ifndef RVIZ_PLUGIN_TOPIC_MSG_H
#define RVIZ_PLUGIN_TOPIC_MSG_H

#include "ros_msg_parser/field_tree.h"

#include <string>
#include <vector>

namespace rviz_plugin {

// One node of a topic's field tree: the topic at the root, a field below it. Owns its children.
class TopicMsg {
public:
    // A "time" field gets its two children at once: "nsecs" then "secs", both "int32".
    TopicMsg(const std::string& name, const std::string& type);
    ~TopicMsg();
    TopicMsg(const TopicMsg&) = delete;
    TopicMsg& operator=(const TopicMsg&) = delete;

    const std::string& GetName() const { return name; }
    const std::string& GetType() const { return type; }
    void SetParent(TopicMsg* node) { parent = node; }
    TopicMsg* GetParent() const { return parent; }
    // Takes ownership; a null child is ignored.
    void Addfield(TopicMsg* child);
    const std::vector<TopicMsg*>& GetFields() const { return fields; }
    bool HasChildren() const { return !fields.empty(); }
    void SetArray(const bool& array) { isArray = array; }
    bool GetArrayProperty() const { return isArray; }

    // "/topic/field/sub": the selection path of this node.
    std::string GetFullName() const;
    std::string GetTopicName() const;
    // "[type]" or "[type[]]", "(color)" behind it under a ColorRGBA, "time" under a time field.
    std::string GetFullType() const;

private:
    std::string name;
    std::string type;
    TopicMsg* parent = nullptr;
    std::vector<TopicMsg*> fields;
    bool isArray = false;
};

// The field tree of a topic from the parser's message tree: constants are left out; a field of
// message type becomes a subtree when the message tree lists that type at the next place.
TopicMsg* TraverseMsgTree(const std::string& name, const std::string& type,
                          const RosMsgParser::MessageTreeNode& node);

} // namespace rviz_plugin

#endif

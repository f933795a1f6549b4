#ifndef ROS_MSG_PARSER_FIELD_TREE_H
#define ROS_MSG_PARSER_FIELD_TREE_H

#include "message_definition.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace RosMsgParser {

// One node of a message's field tree: the root is the topic, below it one node per field (a
// message field has its own fields below it). Built once per parser.
struct FieldTreeNode {
    std::string name;
    const ROSField* field = nullptr;          // null at the root
    const ROSMessage* message = nullptr;      // the message this node's fields belong to, for message types
    const FieldTreeNode* parent = nullptr;
    std::vector<std::unique_ptr<FieldTreeNode>> children;
    // Fewest bytes one element of this field takes on the wire: bounds the element count of an array.
    std::size_t minWireSize = 0;
};

// The message types as a tree: the root message, below it one node per field of message type,
// in field order.
struct MessageTreeNode {
    const ROSMessage* message = nullptr;
    std::vector<MessageTreeNode> children;
};

// Deepest nesting of arrays that a path can carry indices for.
constexpr std::size_t maxArrayDepth = 8;

// A decoded leaf: its node in the field tree and the index of each array on the way down.
struct FieldTreeLeaf {
    FieldTreeLeaf() = default;
    FieldTreeLeaf(const FieldTreeNode* leafNode, const std::array<uint16_t, 8>& indices, uint8_t count)
        : node(leafNode), indexArray(indices), indexCount(count)
    {
    }

    const FieldTreeNode* node = nullptr;
    std::array<uint16_t, maxArrayDepth> indexArray{};
    uint8_t indexCount = 0;

    // "topic/field.3/sub": the names from the root, each array element written as name.index.
    void toStr(std::string& out) const;
    std::string toStdString() const
    {
        std::string out;
        toStr(out);
        return out;
    }
};

struct MessageSchema {
    std::string topicName;
    std::unique_ptr<FieldTreeNode> fieldTree;
    MessageTreeNode messageTree;
    RosMessageLibrary messageLibrary;
    std::shared_ptr<ROSMessage> rootMessage;
};

} // namespace RosMsgParser

#endif

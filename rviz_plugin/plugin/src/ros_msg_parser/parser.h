#ifndef ROS_MSG_PARSER_PARSER_H
#define ROS_MSG_PARSER_PARSER_H

#include "flat_message.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace RosMsgParser {

// Bytes that do not fit the definition: too short, or a length that runs past the end.
class DeserializeError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Decodes messages of one type, known only at run time from its definition text.
class Parser {
public:
    enum MaxArrayPolicy : bool { DISCARD_LARGE_ARRAYS = true, KEEP_LARGE_ARRAYS = false };
    static constexpr std::size_t maxArraySizeLimit = 10000;

    // definition: the full text of the connection header, with its "MSG:" sections. Throws ParseError.
    Parser(const std::string& topicName, const ROSType& messageType, const std::string& definition);

    // Arrays longer than maxArraySize are cut to their first maxArraySize elements (or left out
    // entirely with DISCARD_LARGE_ARRAYS); uint8 and int8 arrays that long become blobs.
    // Throws std::runtime_error above maxArraySizeLimit.
    void setMaxArrayPolicy(MaxArrayPolicy policy, std::size_t maxArraySize);
    MaxArrayPolicy maxArrayPolicy() const { return policy_; }
    std::size_t maxArraySize() const { return maxArraySize_; }

    const std::shared_ptr<MessageSchema>& getSchema() const { return schema_; }

    // Decodes buffer into flat (reused). Throws DeserializeError for this message only; flat is then
    // left with what was decoded before the error.
    bool deserializeIntoFlatMsg(Span<uint8_t> buffer, FlatMessage* flat) const;

    class Reader;

private:
    void DecodeElement(const FieldTreeNode& node, BuiltinType type, Reader& reader, FlatMessage& flat,
                       FieldTreeLeaf& leaf, bool keep) const;
    void Decode(const FieldTreeNode& node, Reader& reader, FlatMessage& flat, FieldTreeLeaf& leaf) const;
    void DecodeField(const FieldTreeNode& node, Reader& reader, FlatMessage& flat, FieldTreeLeaf& leaf,
                     bool store) const;

    std::shared_ptr<MessageSchema> schema_;
    MaxArrayPolicy policy_ = DISCARD_LARGE_ARRAYS;
    std::size_t maxArraySize_ = 100;
};

} // namespace RosMsgParser

#endif

#ifndef ROS_MSG_PARSER_PARSER_H
#define ROS_MSG_PARSER_PARSER_H

#include "flat_message.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>
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

    // Decodes buffer into flat (reused). Throws DeserializeError for this message only, for a buffer
    // too short or one with bytes left after the message; flat is then left with what was decoded
    // before the error.
    bool deserializeIntoFlatMsg(Span<uint8_t> buffer, FlatMessage* flat) const;

    class Reader;
    class Output;

    struct Program;
    // One step of decoding an element of a message type. Nested messages that are not array
    // elements are decoded in line, so a step is one of:
    struct Segment {
        enum Kind : uint8_t {
            FIXED,        // consecutive fixed-layout fields: layout
            TEXT,         // a string field: field
            FIXED_ARRAY,  // an array field whose elements have a fixed layout: field, layout of one element
            ARRAY,        // any other array field (strings, messages with strings or arrays): field
        };
        Kind kind = FIXED;
        std::unique_ptr<FixedLayout> layout;
        const FieldTreeNode* field = nullptr;
        // On the first FIXED step of those that only TEXT steps separate: the leaves of all of
        // them. Their numbers follow each other in the flat values and form one run.
        std::vector<LeafStep> runSteps;
        // ARRAY of messages: how one element is decoded.
        const Program* program = nullptr;
    };
    // How one element of a message type is decoded: the message (the root, or an array of messages)
    // and its steps.
    struct Program {
        const FieldTreeNode* message = nullptr;
        std::vector<Segment> segments;
    };
    // The programs of the root message and of the message arrays in it. Decoded messages keep them
    // alive: their values point into the layouts.
    struct Programs {
        std::vector<std::unique_ptr<Program>> all;
        const Program* root = nullptr;
    };

private:
    void BuildPrograms();
    const Program* BuildProgram(const FieldTreeNode& node, Programs& programs) const;
    void AddFields(const FieldTreeNode& node, std::vector<Segment>& program, std::unique_ptr<FixedLayout>& run,
                   Programs& programs) const;
    bool AddFixedLayout(const FieldTreeNode& node, uint8_t depth, std::array<uint16_t, maxArrayDepth>& indices,
                        FixedLayout& layout) const;
    bool AddFixedElement(const FieldTreeNode& node, uint8_t depth, std::array<uint16_t, maxArrayDepth>& indices,
                         FixedLayout& layout) const;
    void DecodeMessage(const Program& program, Reader& reader, Output& out, FieldTreeLeaf& leaf,
                       bool keep) const;
    void DecodeArray(const Segment& segment, Reader& reader, Output& out, FieldTreeLeaf& leaf,
                     bool store) const;

    std::shared_ptr<MessageSchema> schema_;
    MaxArrayPolicy policy_ = DISCARD_LARGE_ARRAYS;
    std::size_t maxArraySize_ = 100;
    std::shared_ptr<const Programs> programs_;
};

} // namespace RosMsgParser

#endif

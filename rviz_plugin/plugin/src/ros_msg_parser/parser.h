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

    // Decodes buffer into flat (reused). Throws DeserializeError for this message only; flat is then
    // left with what was decoded before the error.
    bool deserializeIntoFlatMsg(Span<uint8_t> buffer, FlatMessage* flat) const;

    class Reader;

    // One number of a fixed-layout element: where it lies in the element's bytes and the array
    // indices it adds below the element.
    // The indices of a leaf, all eight 16-bit words in one number (first index lowest).
    __extension__ typedef unsigned __int128 IndexBits;
    struct LeafStep {
        const FieldTreeNode* node = nullptr;
        BuiltinType type = OTHER;
        uint32_t offset = 0;
        uint8_t extraCount = 0;
        IndexBits extra = 0;
    };
    // The numbers of consecutive fields whose bytes have a fixed layout (no strings, no variable
    // arrays, no arrays that the array limit cuts), decoded in one pass without recursion.
    struct FixedLayout {
        std::size_t size = 0;
        std::vector<LeafStep> steps;
        // Consecutive steps of one type, decoded by one loop: [first, first + count) of steps.
        struct Batch {
            BuiltinType type;
            uint32_t first;
            uint32_t count;
        };
        std::vector<Batch> batches;
    };
    // How one element of a message type is decoded: runs of fixed-layout fields, and in between
    // the fields that need the general path (run null, field set).
    struct Segment {
        std::unique_ptr<FixedLayout> run;
        const FieldTreeNode* field = nullptr;
    };

private:
    void BuildPrograms();
    bool AddFixedLayout(const FieldTreeNode& node, uint8_t depth, std::size_t& offset,
                        std::array<uint16_t, maxArrayDepth>& indices, FixedLayout& layout) const;
    void DecodeFixed(const FixedLayout& layout, Reader& reader, FlatMessage& flat, const FieldTreeLeaf& leaf,
                     bool keep) const;
    void DecodeElement(const FieldTreeNode& node, BuiltinType type, Reader& reader, FlatMessage& flat,
                       FieldTreeLeaf& leaf, bool keep) const;
    void DecodeMessage(const FieldTreeNode& node, Reader& reader, FlatMessage& flat, FieldTreeLeaf& leaf,
                       bool keep) const;
    void DecodeField(const FieldTreeNode& node, Reader& reader, FlatMessage& flat, FieldTreeLeaf& leaf,
                     bool store) const;

    std::shared_ptr<MessageSchema> schema_;
    MaxArrayPolicy policy_ = DISCARD_LARGE_ARRAYS;
    std::size_t maxArraySize_ = 100;
    // By node id: how one element of that node's message type is decoded (the root has id 0).
    std::vector<std::vector<Segment>> programs_;
};

} // namespace RosMsgParser

#endif

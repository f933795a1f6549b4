#ifndef ROS_MSG_PARSER_FLAT_MESSAGE_H
#define ROS_MSG_PARSER_FLAT_MESSAGE_H

#include "field_tree.h"
#include "flat_values.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace RosMsgParser {

// A read-only view of bytes.
template <typename T>
class Span {
public:
    Span() = default;
    Span(const T* data, std::size_t size) : data_(data), size_(size) {}
    explicit Span(const std::vector<T>& vector) : data_(vector.data()), size_(vector.size()) {}
    const T* data() const { return data_; }
    std::size_t size() const { return size_; }
    const T& operator[](std::size_t index) const { return data_[index]; }

private:
    const T* data_ = nullptr;
    std::size_t size_ = 0;
};

// One decoded message as flat lists of leaves: numbers, strings, and byte blobs (uint8 and int8
// arrays longer than the array limit). Reused message after message: the lists keep their memory.
struct FlatMessage {
    std::shared_ptr<MessageSchema> schema;
    FlatValues value;
    std::vector<std::pair<FieldTreeLeaf, std::string>> name;
    std::vector<std::pair<FieldTreeLeaf, Span<uint8_t>>> blob;
    std::vector<std::vector<uint8_t>> blob_storage;
};

using RenamedValues = std::vector<std::pair<std::string, double>>;

// Every number of msg as (path, double); times as seconds. Throws RangeException for 64-bit
// integers that a double cannot hold exactly.
void CreateRenamedValues(const FlatMessage& msg, RenamedValues& out);

} // namespace RosMsgParser

#endif

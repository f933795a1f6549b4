#include "parser.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <tuple>

namespace RosMsgParser {

namespace {

constexpr std::size_t maxNestingDepth = 32;

// Failures are rare: building their texts stays out of the decoding functions.
[[noreturn]] __attribute__((noinline, cold)) void ThrowTooShort(std::size_t needed, std::size_t left)
{
    throw DeserializeError("buffer too short: " + std::to_string(needed) + " bytes needed, " + std::to_string(left) +
                           " left");
}

[[noreturn]] __attribute__((noinline, cold)) void ThrowArrayTooLong(const std::string& name, std::size_t count)
{
    throw DeserializeError("array " + name + " of " + std::to_string(count) +
                           " elements runs past the end of the buffer");
}

bool IsByte(BuiltinType type)
{
    return type == UINT8 || type == INT8 || type == BYTE || type == CHAR;
}

class TreeBuilder {
public:
    explicit TreeBuilder(const RosMessageLibrary& library) : library(library) {}

    const ROSMessage& Message(const ROSType& type) const { return *library.at(type); }

    // The fields of message below node; rejects recursive types and absurd nesting.
    void Build(FieldTreeNode& node, const ROSMessage& message, std::size_t depth, std::size_t arrayDepth)
    {
        if (depth > maxNestingDepth) {
            throw ParseError("message nesting deeper than " + std::to_string(maxNestingDepth));
        }
        if (!path.insert(message.type().baseName()).second) {
            throw ParseError("recursive message type " + message.type().baseName());
        }
        node.message = &message;
        for (const ROSField& field : message.fields()) {
            if (field.isConstant()) {
                continue;
            }
            auto child = std::make_unique<FieldTreeNode>();
            child->id = nextId++;
            child->name = field.name();
            child->field = &field;
            child->parent = &node;
            const std::size_t childArrays = arrayDepth + (field.isArray() ? 1 : 0);
            if (childArrays > maxArrayDepth) {
                throw ParseError("arrays nested deeper than " + std::to_string(maxArrayDepth));
            }
            if (!field.type().isBuiltin()) {
                Build(*child, Message(field.type()), depth + 1, childArrays);
            }
            child->minWireSize = ElementMinSize(field);
            node.children.push_back(std::move(child));
        }
        path.erase(message.type().baseName());
    }

    MessageTreeNode MessageTree(const ROSMessage& message) const
    {
        MessageTreeNode node;
        node.message = &message;
        for (const ROSField& field : message.fields()) {
            if (!field.isConstant() && !field.type().isBuiltin()) {
                node.children.push_back(MessageTree(Message(field.type())));
            }
        }
        return node;
    }

private:
    std::size_t ElementMinSize(const ROSField& field)
    {
        const BuiltinType type = field.type().typeID();
        if (type == STRING) {
            return 4;
        }
        if (type != OTHER) {
            return BuiltinSize(type);
        }
        return MessageMinSize(Message(field.type()));
    }

    std::size_t MessageMinSize(const ROSMessage& message)
    {
        const auto cached = minSizes.find(&message);
        if (cached != minSizes.end()) {
            return cached->second;
        }
        std::size_t total = 0;
        for (const ROSField& field : message.fields()) {
            if (field.isConstant()) {
                continue;
            }
            if (field.isArray() && field.arraySize() < 0) {
                total += 4;
            } else {
                const std::size_t count = field.isArray() ? static_cast<std::size_t>(field.arraySize()) : 1;
                total += count * ElementMinSize(field);
            }
        }
        minSizes[&message] = total;
        return total;
    }

    const RosMessageLibrary& library;
    std::size_t nextId = 1;
    std::set<std::string> path;
    std::map<const ROSMessage*, std::size_t> minSizes;
};

} // namespace

// Bounds-checked little-endian reading of one message.
class Parser::Reader {
public:
    explicit Reader(Span<uint8_t> buffer) : position(buffer.data()), end(buffer.data() + buffer.size()) {}

    std::size_t Remaining() const { return static_cast<std::size_t>(end - position); }

    template <typename T>
    T Read()
    {
        Require(sizeof(T));
        T value;
        std::memcpy(&value, position, sizeof(T));
        position += sizeof(T);
        return value;
    }
    const uint8_t* Take(std::size_t bytes)
    {
        Require(bytes);
        const uint8_t* start = position;
        position += bytes;
        return start;
    }
    void Require(std::size_t bytes) const
    {
        if (__builtin_expect(bytes > Remaining(), 0)) {
            ThrowTooShort(bytes, Remaining());
        }
    }

private:
    const uint8_t* position;
    const uint8_t* end;
};

Parser::Parser(const std::string& topicName, const ROSType& messageType, const std::string& definition)
    : schema_(std::make_shared<MessageSchema>())
{
    schema_->topicName = topicName;
    schema_->messageLibrary = ParseMessageDefinitions(definition, messageType);
    schema_->rootMessage = schema_->messageLibrary.at(messageType);
    TreeBuilder builder(schema_->messageLibrary);
    schema_->fieldTree = std::make_unique<FieldTreeNode>();
    schema_->fieldTree->name = topicName;
    builder.Build(*schema_->fieldTree, *schema_->rootMessage, 0, 0);
    schema_->messageTree = builder.MessageTree(*schema_->rootMessage);
    BuildPrograms();
}

void Parser::setMaxArrayPolicy(MaxArrayPolicy policy, std::size_t maxArraySize)
{
    if (maxArraySize > maxArraySizeLimit) {
        throw std::runtime_error("max_array_size limited to 10000 at most");
    }
    policy_ = policy;
    maxArraySize_ = maxArraySize;
    BuildPrograms();
}

void Parser::BuildPrograms()
{
    programs_.clear();
    std::vector<const FieldTreeNode*> pending{schema_->fieldTree.get()};
    while (!pending.empty()) {
        const FieldTreeNode* node = pending.back();
        pending.pop_back();
        if (node->field != nullptr && node->field->type().isBuiltin()) {
            continue;
        }
        std::vector<Segment> program;
        std::unique_ptr<FixedLayout> run;
        const auto closeRun = [&]() {
            if (run != nullptr && !run->steps.empty()) {
                for (uint32_t index = 0; index < run->steps.size(); ++index) {
                    const BuiltinType type = run->steps[index].type;
                    if (run->batches.empty() || run->batches.back().type != type) {
                        run->batches.push_back({type, index, 0});
                    }
                    ++run->batches.back().count;
                }
                program.push_back({std::move(run), nullptr});
            }
            run.reset();
        };
        for (const auto& child : node->children) {
            pending.push_back(child.get());
            FixedLayout single;
            std::size_t size = 0;
            std::array<uint16_t, maxArrayDepth> indices{};
            if (!AddFixedLayout(*child, 0, size, indices, single)) {
                closeRun();
                program.push_back({nullptr, child.get()});
                continue;
            }
            if (run == nullptr) {
                run = std::make_unique<FixedLayout>();
            }
            for (LeafStep& step : single.steps) {
                step.offset += static_cast<uint32_t>(run->size);
                run->steps.push_back(step);
            }
            run->size += size;
        }
        closeRun();
        if (programs_.size() <= node->id) {
            programs_.resize(node->id + 1);
        }
        programs_[node->id] = std::move(program);
    }
}

bool Parser::AddFixedLayout(const FieldTreeNode& node, uint8_t depth, std::size_t& offset,
                            std::array<uint16_t, maxArrayDepth>& indices, FixedLayout& layout) const
{
    const ROSField& field = *node.field;
    const BuiltinType type = field.type().typeID();
    if (type == STRING || (field.isArray() && field.arraySize() < 0)) {
        return false;
    }
    const std::size_t count = field.isArray() ? static_cast<std::size_t>(field.arraySize()) : 1;
    // Arrays that the limit cuts or turns into blobs take the general path.
    if (field.isArray() && count > maxArraySize_) {
        return false;
    }
    const uint8_t elementDepth = field.isArray() ? static_cast<uint8_t>(depth + 1) : depth;
    for (std::size_t i = 0; i < count; ++i) {
        if (field.isArray()) {
            indices[depth] = static_cast<uint16_t>(i);
        }
        if (type != OTHER) {
            LeafStep step;
            step.node = &node;
            step.type = type;
            step.offset = static_cast<uint32_t>(offset);
            step.extraCount = elementDepth;
            std::memcpy(&step.extra, indices.data(), sizeof(step.extra));
            layout.steps.push_back(step);
            offset += BuiltinSize(type);
            continue;
        }
        for (const auto& child : node.children) {
            if (!AddFixedLayout(*child, elementDepth, offset, indices, layout)) {
                return false;
            }
        }
    }
    return true;
}


bool Parser::deserializeIntoFlatMsg(Span<uint8_t> buffer, FlatMessage* flat) const
{
    if (flat->schema != schema_) {
        flat->schema = schema_;
    }
    flat->value.clear();
    flat->name.clear();
    flat->blob.clear();
    flat->blob_storage.clear();
    Reader reader(buffer);
    FieldTreeLeaf leaf;
    DecodeMessage(*schema_->fieldTree, reader, *flat, leaf, true);
    return true;
}

void Parser::DecodeMessage(const FieldTreeNode& node, Reader& reader, FlatMessage& flat, FieldTreeLeaf& leaf,
                           bool keep) const
{
    if (node.id >= programs_.size()) {
        return;
    }
    for (const Segment& segment : programs_[node.id]) {
        if (segment.run != nullptr) {
            DecodeFixed(*segment.run, reader, flat, leaf, keep);
        } else {
            DecodeField(*segment.field, reader, flat, leaf, keep);
        }
    }
}

namespace {
// Reads one element of a built-in number type; false for strings and messages.
inline bool ReadNumber(BuiltinType type, Parser::Reader& reader, Variant& value)
{
    switch (type) {
    case BOOL:
    case BYTE:
    case UINT8:
    case CHAR:
        value = Variant::Unsigned(type, reader.Read<uint8_t>());
        return true;
    case UINT16:
        value = Variant::Unsigned(type, reader.Read<uint16_t>());
        return true;
    case UINT32:
        value = Variant::Unsigned(type, reader.Read<uint32_t>());
        return true;
    case UINT64:
        value = Variant::Unsigned(type, reader.Read<uint64_t>());
        return true;
    case INT8:
        value = Variant::Signed(type, reader.Read<int8_t>());
        return true;
    case INT16:
        value = Variant::Signed(type, reader.Read<int16_t>());
        return true;
    case INT32:
        value = Variant::Signed(type, reader.Read<int32_t>());
        return true;
    case INT64:
        value = Variant::Signed(type, reader.Read<int64_t>());
        return true;
    case FLOAT32:
        value = Variant::Real(type, reader.Read<float>());
        return true;
    case FLOAT64:
        value = Variant::Real(type, reader.Read<double>());
        return true;
    case TIME:
    case DURATION: {
        const uint32_t seconds = reader.Read<uint32_t>();
        value = Variant::Stamp(type, seconds, reader.Read<uint32_t>());
        return true;
    }
    case STRING:
    case OTHER:
        return false;
    }
    return false;
}
// A little-endian value at bytes (already bounds-checked).
template <typename T>
inline T Load(const uint8_t* bytes)
{
    T value;
    std::memcpy(&value, bytes, sizeof(value));
    return value;
}
} // namespace

namespace {
// Index updates and record writes go through whole words or single fields: a narrow store followed
// by a wide load of the same bytes stalls the processor's store forwarding on every value.
inline void SetIndex(FieldTreeLeaf& leaf, uint8_t depth, uint16_t index)
{
    Parser::IndexBits bits;
    std::memcpy(&bits, leaf.indexArray.data(), sizeof(bits));
    const unsigned shift = 16U * depth;
    bits = (bits & ~(Parser::IndexBits(0xFFFF) << shift)) | (Parser::IndexBits(index) << shift);
    std::memcpy(leaf.indexArray.data(), &bits, sizeof(bits));
}

inline void AppendValue(FlatMessage& flat, const FieldTreeNode* node, const FieldTreeLeaf& leaf, const Variant& value)
{
    flat.value.emplace_back(std::piecewise_construct, std::forward_as_tuple(node, leaf.indexArray, leaf.indexCount),
                            std::forward_as_tuple(value));
}
} // namespace

void Parser::DecodeFixed(const FixedLayout& layout, Reader& reader, FlatMessage& flat, const FieldTreeLeaf& leaf,
                         bool keep) const
{
    const uint8_t* bytes = reader.Take(layout.size);
    if (!keep) {
        return;
    }
    // The leaf's own indices come first, each step's below them. Whole words are combined and
    // stored at once: no narrow stores read back as a whole.
    static_assert(sizeof(IndexBits) == sizeof(leaf.indexArray), "eight 16-bit indices");
    IndexBits prefix = 0;
    std::memcpy(&prefix, leaf.indexArray.data(), sizeof(prefix));
    const unsigned shift = 16U * leaf.indexCount;
    if (shift < 128) {
        prefix &= (IndexBits(1) << shift) - 1;
    }
    // Each record is constructed in place from whole words: a record assembled elsewhere and copied
    // in would be read back right after its narrow stores.
    // Records are written in place, field by field, after one resize.
    const std::size_t base = flat.value.size();
    flat.value.resize(base + layout.steps.size());
    auto* records = flat.value.data() + base;
    const uint8_t count = leaf.indexCount;
    const auto emit = [&](const FixedLayout::Batch& batch, auto load) {
        for (uint32_t index = batch.first; index < batch.first + batch.count; ++index) {
            const LeafStep& step = layout.steps[index];
            const IndexBits bits = step.extraCount == 0 ? prefix : prefix | (step.extra << shift);
            auto& record = records[index];
            record.first.node = step.node;
            std::memcpy(record.first.indexArray.data(), &bits, sizeof(bits));
            record.first.indexCount = static_cast<uint8_t>(count + step.extraCount);
            record.second = load(bytes + step.offset);
        }
    };
    // One switch per run of equal types, not per number.
    for (const FixedLayout::Batch& batch : layout.batches) {
        const BuiltinType type = batch.type;
        switch (type) {
        case BOOL:
        case BYTE:
        case UINT8:
        case CHAR:
            emit(batch, [type](const uint8_t* at) { return Variant::Unsigned(type, Load<uint8_t>(at)); });
            break;
        case UINT16:
            emit(batch, [type](const uint8_t* at) { return Variant::Unsigned(type, Load<uint16_t>(at)); });
            break;
        case UINT32:
            emit(batch, [type](const uint8_t* at) { return Variant::Unsigned(type, Load<uint32_t>(at)); });
            break;
        case UINT64:
            emit(batch, [type](const uint8_t* at) { return Variant::Unsigned(type, Load<uint64_t>(at)); });
            break;
        case INT8:
            emit(batch, [type](const uint8_t* at) { return Variant::Signed(type, Load<int8_t>(at)); });
            break;
        case INT16:
            emit(batch, [type](const uint8_t* at) { return Variant::Signed(type, Load<int16_t>(at)); });
            break;
        case INT32:
            emit(batch, [type](const uint8_t* at) { return Variant::Signed(type, Load<int32_t>(at)); });
            break;
        case INT64:
            emit(batch, [type](const uint8_t* at) { return Variant::Signed(type, Load<int64_t>(at)); });
            break;
        case FLOAT32:
            emit(batch, [type](const uint8_t* at) { return Variant::Real(type, Load<float>(at)); });
            break;
        case FLOAT64:
            emit(batch, [type](const uint8_t* at) { return Variant::Real(type, Load<double>(at)); });
            break;
        case TIME:
        case DURATION:
            emit(batch, [type](const uint8_t* at) {
                return Variant::Stamp(type, Load<uint32_t>(at), Load<uint32_t>(at + 4));
            });
            break;
        case STRING:
        case OTHER:
            break;
        }
    }
}

void Parser::DecodeElement(const FieldTreeNode& node, BuiltinType type, Reader& reader, FlatMessage& flat,
                           FieldTreeLeaf& leaf, bool keep) const
{
    Variant value;
    if (ReadNumber(type, reader, value)) {
        if (keep) {
            AppendValue(flat, &node, leaf, value);
        }
        return;
    }
    if (type == STRING) {
        const uint32_t length = reader.Read<uint32_t>();
        const uint8_t* text = reader.Take(length);
        if (keep) {
            leaf.node = &node;
            flat.name.emplace_back(leaf, std::string(reinterpret_cast<const char*>(text), length));
        }
        return;
    }
    DecodeMessage(node, reader, flat, leaf, keep);
}

void Parser::DecodeField(const FieldTreeNode& node, Reader& reader, FlatMessage& flat, FieldTreeLeaf& leaf,
                         bool store) const
{
    const ROSField& field = *node.field;
    const BuiltinType type = field.type().typeID();
    if (!field.isArray()) {
        DecodeElement(node, type, reader, flat, leaf, store);
        return;
    }
    const std::size_t count =
        field.arraySize() >= 0 ? static_cast<std::size_t>(field.arraySize()) : reader.Read<uint32_t>();
    if (IsByte(type) && count > maxArraySize_) {
        const uint8_t* bytes = reader.Take(count);
        if (store && policy_ == KEEP_LARGE_ARRAYS) {
            leaf.node = &node;
            flat.blob_storage.emplace_back(bytes, bytes + count);
            flat.blob.emplace_back(leaf, Span<uint8_t>(flat.blob_storage.back()));
        }
        return;
    }
    // A length that the rest of the buffer cannot hold is refused before any work.
    if (node.minWireSize > 0 && count > reader.Remaining() / node.minWireSize) {
        ThrowArrayTooLong(node.name, count);
    }
    const std::size_t kept =
        count <= maxArraySize_ ? count : (policy_ == KEEP_LARGE_ARRAYS ? maxArraySize_ : std::size_t(0));
    // Elements of no size carry nothing: those beyond the kept ones need no reading.
    const std::size_t visited = node.minWireSize == 0 ? std::min(count, kept) : count;
    const uint8_t depth = leaf.indexCount++;
    if (type != STRING && type != OTHER && store) {
        // Numbers: one tight loop, the rest of the array skipped in one step.
        Variant value;
        for (std::size_t i = 0; i < kept; ++i) {
            SetIndex(leaf, depth, static_cast<uint16_t>(i));
            ReadNumber(type, reader, value);
            AppendValue(flat, &node, leaf, value);
        }
        reader.Take((count - kept) * node.minWireSize);
    } else {
        for (std::size_t i = 0; i < visited; ++i) {
            SetIndex(leaf, depth, static_cast<uint16_t>(std::min<std::size_t>(i, UINT16_MAX)));
            DecodeElement(node, type, reader, flat, leaf, store && i < kept);
        }
    }
    leaf.indexCount = depth;
}

double Variant::convertToDouble() const
{
    switch (type_) {
    case INT64: {
        const double converted = static_cast<double>(signed_);
        if (converted >= 9223372036854775808.0 || static_cast<int64_t>(converted) != signed_) {
            throw RangeException("int64 value " + std::to_string(signed_) + " cannot be converted to double exactly");
        }
        return converted;
    }
    case UINT64: {
        const double converted = static_cast<double>(unsigned_);
        if (converted >= 18446744073709551616.0 || static_cast<uint64_t>(converted) != unsigned_) {
            throw RangeException("uint64 value " + std::to_string(unsigned_) +
                                 " cannot be converted to double exactly");
        }
        return converted;
    }
    case BOOL:
    case BYTE:
    case CHAR:
    case UINT8:
    case UINT16:
    case UINT32:
        return static_cast<double>(unsigned_);
    case INT8:
    case INT16:
    case INT32:
        return static_cast<double>(signed_);
    case FLOAT32:
    case FLOAT64:
        return real_;
    case TIME:
        return static_cast<double>(stamp_.seconds) + static_cast<double>(stamp_.nanoseconds) * 1e-9;
    case DURATION:
        return static_cast<double>(static_cast<int32_t>(stamp_.seconds)) +
               static_cast<double>(static_cast<int32_t>(stamp_.nanoseconds)) * 1e-9;
    case STRING:
    case OTHER:
        break;
    }
    throw RangeException("not a number");
}

void FieldTreeLeaf::toStr(std::string& out) const
{
    out.clear();
    if (node == nullptr) {
        return;
    }
    std::array<const FieldTreeNode*, 64> chain{};
    std::size_t length = 0;
    for (const FieldTreeNode* current = node; current != nullptr && length < chain.size();
         current = current->parent) {
        chain[length++] = current;
    }
    std::size_t index = 0;
    for (std::size_t i = length; i-- > 0;) {
        const FieldTreeNode* current = chain[i];
        if (current->field != nullptr) {
            out += '/';
        }
        out += current->name;
        if (current->field != nullptr && current->field->isArray() && index < indexCount) {
            out += '.';
            out += std::to_string(indexArray[index++]);
        }
    }
}

void CreateRenamedValues(const FlatMessage& msg, RenamedValues& out)
{
    out.resize(msg.value.size());
    for (std::size_t i = 0; i < msg.value.size(); ++i) {
        msg.value[i].first.toStr(out[i].first);
        out[i].second = msg.value[i].second.convertToDouble();
    }
}

} // namespace RosMsgParser

#include "parser.h"

#include <algorithm>
#include <charconv>
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

// Where one message is decoded to. The texts of the previous message are overwritten in place and
// keep their memory; those left over are removed when decoding ends, by an error too.
class Parser::Output {
public:
    explicit Output(FlatMessage& flat) : flat(flat) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output() { flat.name.erase(flat.name.begin() + static_cast<std::ptrdiff_t>(texts), flat.name.end()); }

    // The text of field node, below the array indices of leaf. The leaf is copied field by field:
    // a whole copy would read back in wide words what was written in narrower ones, which stalls.
    void AddText(const FieldTreeNode& node, const FieldTreeLeaf& leaf, const char* text, std::size_t length)
    {
        if (texts < flat.name.size()) {
            auto& entry = flat.name[texts];
            entry.first.node = &node;
            entry.first.indexArray = leaf.indexArray;
            entry.first.indexCount = leaf.indexCount;
            // Texts such as frame ids mostly repeat message after message.
            if (entry.second.size() != length || std::memcmp(entry.second.data(), text, length) != 0) {
                entry.second.assign(text, length);
            }
        } else {
            flat.name.emplace_back(std::piecewise_construct,
                                   std::forward_as_tuple(&node, leaf.indexArray, leaf.indexCount),
                                   std::forward_as_tuple(text, length));
        }
        ++texts;
    }

    FlatMessage& flat;

private:
    std::size_t texts = 0;
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
    if (programs_ && policy == policy_ && maxArraySize == maxArraySize_) {
        return;  // the programs already follow this policy
    }
    policy_ = policy;
    maxArraySize_ = maxArraySize;
    BuildPrograms();
}

namespace {
using Segment = Parser::Segment;

// Ends the run of fixed-layout fields being collected, if any.
void CloseRun(std::vector<Segment>& program, std::unique_ptr<FixedLayout>& run)
{
    if (run != nullptr && !run->steps.empty()) {
        run->Finish();
        program.push_back({Segment::FIXED, std::move(run), nullptr, {}, nullptr});
    }
    run.reset();
}

// Appends one node of a path: "/name" (the root: its name alone), and ".index" for an array element.
void AppendNode(std::string& out, const FieldTreeNode& node, const uint16_t* index)
{
    if (node.field != nullptr) {
        out += '/';
    }
    out += node.name;
    if (index != nullptr) {
        char digits[8];
        const auto end = std::to_chars(digits, digits + sizeof(digits), *index).ptr;
        out += '.';
        out.append(digits, end);
    }
}

bool IsArray(const FieldTreeNode& node)
{
    return node.field != nullptr && node.field->isArray();
}

// Appends the path from below top (the root when null) down to leaf, each array on the way taking
// the next of count indices.
void AppendPath(std::string& out, const FieldTreeNode* top, const FieldTreeNode& leaf, const uint16_t* indices,
                std::size_t count)
{
    std::array<const FieldTreeNode*, 64> chain{};
    std::size_t length = 0;
    for (const FieldTreeNode* node = &leaf; node != nullptr && node != top && length < chain.size();
         node = node->parent) {
        chain[length++] = node;
    }
    std::size_t index = 0;
    for (std::size_t i = length; i-- > 0;) {
        const bool indexed = IsArray(*chain[i]) && index < count;
        AppendNode(out, *chain[i], indexed ? &indices[index++] : nullptr);
    }
}

// Gives each step its path below base, with its own indices.
void SetSuffixes(const FieldTreeNode& base, FixedLayout& layout)
{
    for (LeafStep& step : layout.steps) {
        std::array<uint16_t, maxArrayDepth> indices{};
        std::memcpy(indices.data(), &step.extra, sizeof(step.extra));
        step.suffix.clear();
        AppendPath(step.suffix, &base, *step.node, indices.data(), step.extraCount);
    }
}

// Gives the first of each group of FIXED steps that only TEXT steps separate the leaves of the group.
void GroupRuns(std::vector<Segment>& program)
{
    std::size_t first = program.size();
    for (std::size_t index = 0; index < program.size(); ++index) {
        switch (program[index].kind) {
        case Segment::FIXED:
            if (first == program.size()) {
                first = index;
            }
            program[first].runSteps.insert(program[first].runSteps.end(), program[index].layout->steps.begin(),
                                           program[index].layout->steps.end());
            break;
        case Segment::TEXT:
            break;
        case Segment::FIXED_ARRAY:
        case Segment::ARRAY:
            first = program.size();
            break;
        }
    }
}
} // namespace

void Parser::BuildPrograms()
{
    auto programs = std::make_shared<Programs>();
    programs->root = BuildProgram(*schema_->fieldTree, *programs);
    programs_ = std::move(programs);
}

// A nested message that is not an array element is decoded in line, as part of its parent's program.
const Parser::Program* Parser::BuildProgram(const FieldTreeNode& node, Programs& programs) const
{
    auto program = std::make_unique<Program>();
    program->message = &node;
    std::unique_ptr<FixedLayout> run;
    AddFields(node, program->segments, run, programs);
    CloseRun(program->segments, run);
    // Paths of fixed fields start at this message; those of array elements at their array.
    for (Segment& segment : program->segments) {
        if (segment.layout != nullptr) {
            SetSuffixes(segment.kind == Segment::FIXED ? node : *segment.field, *segment.layout);
        }
    }
    GroupRuns(program->segments);
    programs.all.push_back(std::move(program));
    return programs.all.back().get();
}

void Parser::AddFields(const FieldTreeNode& node, std::vector<Segment>& program, std::unique_ptr<FixedLayout>& run,
                       Programs& programs) const
{
    for (const auto& child : node.children) {
        const ROSField& field = *child->field;
        const bool message = field.type().typeID() == OTHER;
        FixedLayout single;
        std::array<uint16_t, maxArrayDepth> indices{};
        if (AddFixedLayout(*child, 0, indices, single)) {
            if (run == nullptr) {
                run = std::make_unique<FixedLayout>();
            }
            for (LeafStep& step : single.steps) {
                step.offset += static_cast<uint32_t>(run->size);
                run->steps.push_back(step);
            }
            run->size += single.size;
            continue;
        }
        if (message && !field.isArray()) {
            AddFields(*child, program, run, programs);
            continue;
        }
        CloseRun(program, run);
        Segment segment{field.isArray() ? Segment::ARRAY : Segment::TEXT, nullptr, child.get(), {}, nullptr};
        if (field.isArray() && field.type().typeID() != STRING) {
            auto element = std::make_unique<FixedLayout>();
            if (AddFixedElement(*child, 0, indices, *element)) {
                element->Finish();
                segment.kind = Segment::FIXED_ARRAY;
                segment.layout = std::move(element);
            } else if (message) {
                segment.program = BuildProgram(*child, programs);
            }
        }
        program.push_back(std::move(segment));
    }
}

bool Parser::AddFixedLayout(const FieldTreeNode& node, uint8_t depth, std::array<uint16_t, maxArrayDepth>& indices,
                            FixedLayout& layout) const
{
    const ROSField& field = *node.field;
    if (!field.isArray()) {
        return AddFixedElement(node, depth, indices, layout);
    }
    // Variable arrays, and arrays that the limit cuts or turns into blobs, take the general path.
    if (field.arraySize() < 0 || static_cast<std::size_t>(field.arraySize()) > maxArraySize_) {
        return false;
    }
    for (int i = 0; i < field.arraySize(); ++i) {
        indices[depth] = static_cast<uint16_t>(i);
        if (!AddFixedElement(node, static_cast<uint8_t>(depth + 1), indices, layout)) {
            return false;
        }
    }
    return true;
}

bool Parser::AddFixedElement(const FieldTreeNode& node, uint8_t depth, std::array<uint16_t, maxArrayDepth>& indices,
                             FixedLayout& layout) const
{
    const BuiltinType type = node.field->type().typeID();
    if (type == STRING) {
        return false;
    }
    if (type != OTHER) {
        LeafStep step;
        step.node = &node;
        step.type = type;
        step.offset = static_cast<uint32_t>(layout.size);
        step.extraCount = depth;
        // Only the indices above this number: deeper words may hold those of an earlier sibling.
        std::memcpy(&step.extra, indices.data(), depth * sizeof(uint16_t));
        layout.steps.push_back(step);
        layout.size += BuiltinSize(type);
        return true;
    }
    for (const auto& child : node.children) {
        if (!AddFixedLayout(*child, depth, indices, layout)) {
            return false;
        }
    }
    return true;
}

bool Parser::deserializeIntoFlatMsg(Span<uint8_t> buffer, FlatMessage* flat) const
{
    if (flat->schema != schema_) {
        flat->schema = schema_;
    }
    if (flat->value.layouts() != programs_.get()) {
        flat->value.holdLayouts(programs_);
    }
    flat->value.clear();
    flat->blob.clear();
    flat->blob_storage.clear();
    Reader reader(buffer);
    Output out(*flat);
    FieldTreeLeaf leaf;
    DecodeMessage(*programs_->root, reader, out, leaf, true);
    if (reader.Remaining() != 0) {
        throw DeserializeError("buffer too long: " + std::to_string(reader.Remaining()) +
                               " bytes left after the message");
    }
    return true;
}

namespace {
// Index updates go through whole words: a narrow store followed by a wide load of the same bytes
// stalls the processor's store forwarding.
inline void SetIndex(FieldTreeLeaf& leaf, uint8_t depth, uint16_t index)
{
    IndexBits bits;
    std::memcpy(&bits, leaf.indexArray.data(), sizeof(bits));
    const unsigned shift = 16U * depth;
    bits = (bits & ~(IndexBits(0xFFFF) << shift)) | (IndexBits(index) << shift);
    std::memcpy(leaf.indexArray.data(), &bits, sizeof(bits));
}

inline void DecodeText(const FieldTreeNode& node, Parser::Reader& reader, Parser::Output& out,
                       const FieldTreeLeaf& leaf, bool keep)
{
    const uint32_t length = reader.Read<uint32_t>();
    const char* text = reinterpret_cast<const char*>(reader.Take(length));
    if (keep) {
        out.AddText(node, leaf, text, length);
    }
}
} // namespace

void Parser::DecodeMessage(const Program& program, Reader& reader, Output& out, FieldTreeLeaf& leaf,
                           bool keep) const
{
    for (const Segment& segment : program.segments) {
        switch (segment.kind) {
        case Segment::FIXED: {
            const uint8_t* bytes = reader.Take(segment.layout->size);
            if (keep) {
                if (!segment.runSteps.empty()) {
                    out.flat.value.BeginRun(segment.runSteps, *program.message, leaf, false, 1);
                }
                out.flat.value.Decode(*segment.layout, bytes, 1);
            }
            break;
        }
        case Segment::TEXT:
            DecodeText(*segment.field, reader, out, leaf, keep);
            break;
        case Segment::FIXED_ARRAY:
        case Segment::ARRAY:
            DecodeArray(segment, reader, out, leaf, keep);
            break;
        }
    }
}

void Parser::DecodeArray(const Segment& segment, Reader& reader, Output& out, FieldTreeLeaf& leaf,
                         bool store) const
{
    const FieldTreeNode& node = *segment.field;
    const ROSField& field = *node.field;
    const BuiltinType type = field.type().typeID();
    const std::size_t count =
        field.arraySize() >= 0 ? static_cast<std::size_t>(field.arraySize()) : reader.Read<uint32_t>();
    if (IsByte(type) && count > maxArraySize_) {
        const uint8_t* bytes = reader.Take(count);
        if (store && policy_ == KEEP_LARGE_ARRAYS) {
            out.flat.blob_storage.emplace_back(bytes, bytes + count);
            out.flat.blob.emplace_back(std::piecewise_construct,
                                       std::forward_as_tuple(&node, leaf.indexArray, leaf.indexCount),
                                       std::forward_as_tuple(out.flat.blob_storage.back()));
        }
        return;
    }
    // A length that the rest of the buffer cannot hold is refused before any work.
    if (node.minWireSize > 0 && count > reader.Remaining() / node.minWireSize) {
        ThrowArrayTooLong(node.name, count);
    }
    const std::size_t kept =
        count <= maxArraySize_ ? count : (policy_ == KEEP_LARGE_ARRAYS ? maxArraySize_ : std::size_t(0));
    if (segment.kind == Segment::FIXED_ARRAY) {
        // The kept elements decoded as one run, the rest skipped at once.
        const uint8_t* bytes = reader.Take(count * segment.layout->size);
        if (store) {
            out.flat.value.BeginRun(segment.layout->steps, node, leaf, true, static_cast<uint32_t>(kept));
            out.flat.value.Decode(*segment.layout, bytes, static_cast<uint32_t>(kept));
        }
        return;
    }
    // Elements of no size carry nothing: those beyond the kept ones need no reading.
    const std::size_t visited = node.minWireSize == 0 ? std::min(count, kept) : count;
    const uint8_t depth = leaf.indexCount++;
    for (std::size_t i = 0; i < visited; ++i) {
        SetIndex(leaf, depth, static_cast<uint16_t>(std::min<std::size_t>(i, UINT16_MAX)));
        if (type == STRING) {
            DecodeText(node, reader, out, leaf, store && i < kept);
        } else {
            DecodeMessage(*segment.program, reader, out, leaf, store && i < kept);
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
    if (node != nullptr) {
        AppendPath(out, nullptr, *node, indexArray.data(), indexCount);
    }
}

void CreateRenamedValues(const FlatMessage& msg, RenamedValues& out)
{
    out.resize(msg.value.size());
    // Each path is the path of its element (built once per element) and the step's own suffix. A
    // topic's paths mostly repeat message after message: an unchanged one is left as it is.
    std::string basePath;
    auto renamed = out.begin();
    msg.value.ForEachElement([&](const FieldTreeLeaf& base, const LeafStep* steps, const uint64_t* words,
                                 std::size_t count) {
        base.toStr(basePath);
        for (std::size_t i = 0; i < count; ++i, ++renamed) {
            const std::string& suffix = steps[i].suffix;
            std::string& path = renamed->first;
            if (path.size() != basePath.size() + suffix.size() ||
                path.compare(0, basePath.size(), basePath) != 0 ||
                path.compare(basePath.size(), suffix.size(), suffix) != 0) {
                path.assign(basePath).append(suffix);
            }
            renamed->second = Variant::FromBits(steps[i].type, words[i]).convertToDouble();
        }
    });
}

} // namespace RosMsgParser

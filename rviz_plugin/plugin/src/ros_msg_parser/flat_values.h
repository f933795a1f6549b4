#ifndef ROS_MSG_PARSER_FLAT_VALUES_H
#define ROS_MSG_PARSER_FLAT_VALUES_H

#include "fixed_layout.h"
#include "variant.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace RosMsgParser {

// The numbers of one message, in wire order, read as (leaf, value) pairs. The values are decoded
// when appended; their leaves are kept as runs over the parser's fixed layouts (one record per run,
// not per number) and put together when read. Reused message after message: memory is kept.
class FlatValues {
public:
    using value_type = std::pair<FieldTreeLeaf, Variant>;

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = FlatValues::value_type;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = value_type;

        value_type operator*() const;
        const_iterator& operator++();
        bool operator==(const const_iterator& other) const { return word_ == other.word_; }
        bool operator!=(const const_iterator& other) const { return word_ != other.word_; }

    private:
        friend class FlatValues;
        const_iterator(const FlatValues* values, std::size_t word) : values_(values), word_(word) {}

        const FlatValues* values_ = nullptr;
        std::size_t word_ = 0;
        std::size_t run_ = 0;
        uint32_t element_ = 0;
        uint32_t step_ = 0;
    };

    std::size_t size() const { return count_; }
    bool empty() const { return count_ == 0; }
    const_iterator begin() const { return const_iterator(this, 0); }
    const_iterator end() const { return const_iterator(this, count_); }

    // Forgets the values, keeps the memory.
    void clear()
    {
        runs_.clear();
        count_ = 0;
    }
    // The owner of the layouts that runs point into, kept alive for as long as these values exist.
    const void* layouts() const { return layouts_.get(); }
    void holdLayouts(std::shared_ptr<const void> layouts) { layouts_ = std::move(layouts); }

    // Starts a run: the values appended next take their leaves from steps, elements times over,
    // below base with the indices of leaf. With indexed base is an array and each element adds its
    // index at the leaf's depth. A run may stay short of its values when decoding stops at an error.
    void BeginRun(const std::vector<LeafStep>& steps, const FieldTreeNode& base, const FieldTreeLeaf& leaf,
                  bool indexed, uint32_t elements)
    {
        if (steps.empty() || elements == 0) {
            return;
        }
        // Only the leaf's own indices: deeper words may hold indices of an earlier array.
        IndexBits prefix = 0;
        if (leaf.indexCount > 0) {
            std::memcpy(&prefix, leaf.indexArray.data(), sizeof(prefix));
            const unsigned shift = 16U * leaf.indexCount;
            if (shift < 128) {
                prefix &= (IndexBits(1) << shift) - 1;
            }
        }
        // Filled in place: a record assembled on the stack and copied would be read back as a
        // whole right after its narrow stores, which stalls store forwarding.
        Run& run = runs_.emplace_back();
        run.steps = steps.data();
        run.base = &base;
        run.prefix = prefix;
        run.stepCount = static_cast<uint32_t>(steps.size());
        run.elements = elements;
        run.depth = leaf.indexCount;
        run.indexed = indexed;
    }

    // Calls visit(base, steps, words, count) for each element of each run: base is the leaf of the
    // element (the message or array element that the steps' paths start from), words the values of
    // its first count steps (all but at the end of a run cut short by an error).
    template <typename Visit>
    void ForEachElement(Visit&& visit) const
    {
        std::size_t word = 0;
        for (const Run& run : runs_) {
            FieldTreeLeaf base;
            base.node = run.base;
            for (uint32_t element = 0; element < run.elements && word < count_; ++element) {
                const IndexBits bits = run.ElementIndices(element);
                std::memcpy(base.indexArray.data(), &bits, sizeof(bits));
                base.indexCount = run.ElementDepth();
                const std::size_t count = std::min<std::size_t>(run.stepCount, count_ - word);
                visit(static_cast<const FieldTreeLeaf&>(base), run.steps, words_.data() + word, count);
                word += count;
            }
        }
    }

    // Decodes the numbers of elements elements of layout lying back to back from bytes, as the next
    // values of the current run.
    void Decode(const FixedLayout& layout, const uint8_t* bytes, uint32_t elements)
    {
        const std::size_t perElement = layout.steps.size();
        uint64_t* out = Grow(perElement * elements);
        for (uint32_t element = 0; element < elements; ++element) {
            layout.Decode(bytes + element * layout.size, out + element * perElement);
        }
    }

private:
    struct Run {
        Run() {}  // filled in place, field by field: no zeroing first
        const LeafStep* steps;
        const FieldTreeNode* base;
        IndexBits prefix;
        uint32_t stepCount;
        uint32_t elements;
        uint8_t depth;
        bool indexed;

        // The indices of one element: the prefix, and the element's own index in an array.
        IndexBits ElementIndices(uint32_t element) const
        {
            return indexed ? prefix | (IndexBits(element) << (16U * depth)) : prefix;
        }
        uint8_t ElementDepth() const { return static_cast<uint8_t>(depth + (indexed ? 1 : 0)); }
    };

    // Room for count more values, kept for later messages.
    uint64_t* Grow(std::size_t count)
    {
        if (__builtin_expect(count_ + count > words_.size(), 0)) {
            words_.resize(std::max(count_ + count, 2 * words_.size()));
        }
        uint64_t* out = words_.data() + count_;
        count_ += count;
        return out;
    }

    std::shared_ptr<const void> layouts_;
    std::vector<Run> runs_;
    // Each value's bits as Variant holds them; only the first count_ are in use.
    std::vector<uint64_t> words_;
    std::size_t count_ = 0;
};

} // namespace RosMsgParser

#endif

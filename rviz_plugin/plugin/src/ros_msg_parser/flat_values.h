#ifndef ROS_MSG_PARSER_FLAT_VALUES_H
#define ROS_MSG_PARSER_FLAT_VALUES_H

#include "fixed_layout.h"
#include "variant.h"

#include <algorithm>
#include <cstdint>
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

    // Decodes elements elements of layout, lying back to back from bytes, below the indices of
    // leaf. With indexed each element is an array element and adds its index at the leaf's depth.
    void AppendRun(const FixedLayout& layout, const FieldTreeLeaf& leaf, bool indexed, const uint8_t* bytes,
                   uint32_t elements);

private:
    struct Run {
        const FixedLayout* layout;
        IndexBits prefix;
        uint32_t elements;
        uint8_t depth;
        bool indexed;
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

#ifndef ROS_MSG_PARSER_FIXED_LAYOUT_H
#define ROS_MSG_PARSER_FIXED_LAYOUT_H

#include "field_tree.h"

#include <cstdint>
#include <string>
#include <vector>

namespace RosMsgParser {

// The eight 16-bit array indices of a leaf as one number (first index lowest).
__extension__ typedef unsigned __int128 IndexBits;
static_assert(sizeof(IndexBits) == sizeof(FieldTreeLeaf::indexArray), "eight 16-bit indices");

// One number of a fixed-layout element: its node and type, where it lies in the element's bytes,
// the array indices it adds below the element, and its path below the element ("/orientation/x",
// "/xy.1"; empty for an element that is a number itself).
struct LeafStep {
    const FieldTreeNode* node = nullptr;
    BuiltinType type = OTHER;
    uint32_t offset = 0;
    uint8_t extraCount = 0;
    IndexBits extra = 0;
    std::string suffix;
};

// Bytes whose layout is known in advance (no strings, no variable arrays, no arrays that the array
// limit cuts): the numbers in them are decoded in one pass without recursion.
struct FixedLayout {
    std::size_t size = 0;
    std::vector<LeafStep> steps;
    // Consecutive steps of one type, which lie back to back in the bytes: [first, first + count)
    // of steps, starting at byte offset.
    struct Batch {
        BuiltinType type;
        uint32_t first;
        uint32_t count;
        uint32_t offset;
    };
    std::vector<Batch> batches;

    // Groups the steps into batches once they are all added.
    void Finish();
    // Decodes the numbers of one element at element into out, one 64-bit word each as Variant
    // keeps them (integers widened, floats as double, times as their two words).
    void Decode(const uint8_t* element, uint64_t* out) const;
};

} // namespace RosMsgParser

#endif

#include "flat_values.h"

#include <cstring>

namespace RosMsgParser {

FlatValues::value_type FlatValues::const_iterator::operator*() const
{
    const Run& run = values_->runs_[run_];
    const LeafStep& step = run.steps[step_];
    IndexBits bits = run.ElementIndices(element_);
    const unsigned depth = run.ElementDepth();
    if (step.extraCount > 0) {
        bits |= step.extra << (16U * depth);
    }
    value_type value;
    value.first.node = step.node;
    std::memcpy(value.first.indexArray.data(), &bits, sizeof(bits));
    value.first.indexCount = static_cast<uint8_t>(depth + step.extraCount);
    value.second = Variant::FromBits(step.type, values_->words_[word_]);
    return value;
}

FlatValues::const_iterator& FlatValues::const_iterator::operator++()
{
    ++word_;
    const Run& run = values_->runs_[run_];
    if (++step_ == run.stepCount) {
        step_ = 0;
        if (++element_ == run.elements) {
            element_ = 0;
            ++run_;
        }
    }
    return *this;
}

} // namespace RosMsgParser

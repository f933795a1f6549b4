#include "fixed_layout.h"

#include <cstring>
#include <type_traits>

namespace RosMsgParser {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "wire order is the machine's order");

void FixedLayout::Finish()
{
    batches.clear();
    for (uint32_t index = 0; index < steps.size(); ++index) {
        const BuiltinType type = steps[index].type;
        if (batches.empty() || batches.back().type != type) {
            batches.push_back({type, index, 0, steps[index].offset});
        }
        ++batches.back().count;
    }
}

namespace {

// The 64 bits Variant keeps for one wire value of type Wire.
template <typename Wire>
inline uint64_t Widen(const uint8_t* at)
{
    Wire value;
    std::memcpy(&value, at, sizeof(value));
    if constexpr (std::is_floating_point_v<Wire>) {
        const double widened = value;
        uint64_t bits;
        std::memcpy(&bits, &widened, sizeof(bits));
        return bits;
    } else if constexpr (std::is_signed_v<Wire>) {
        return static_cast<uint64_t>(static_cast<int64_t>(value));
    } else {
        return static_cast<uint64_t>(value);
    }
}

// One batch: count values of one type lying back to back.
template <typename Wire>
inline void DecodeBatch(const uint8_t* at, uint32_t count, uint64_t* out)
{
    if constexpr (sizeof(Wire) == sizeof(uint64_t)) {
        if (count >= 8) {  // 64-bit values are kept as they come; a call is worth it for longer batches
            std::memcpy(out, at, count * sizeof(Wire));
            return;
        }
    }
    for (uint32_t i = 0; i < count; ++i) {
        out[i] = Widen<Wire>(at + i * sizeof(Wire));
    }
}

} // namespace

void FixedLayout::Decode(const uint8_t* element, uint64_t* out) const
{
    for (const Batch& batch : batches) {
        const uint8_t* at = element + batch.offset;
        uint64_t* to = out + batch.first;
        switch (batch.type) {
        case BOOL:
        case BYTE:
        case UINT8:
        case CHAR:
            DecodeBatch<uint8_t>(at, batch.count, to);
            break;
        case UINT16:
            DecodeBatch<uint16_t>(at, batch.count, to);
            break;
        case UINT32:
            DecodeBatch<uint32_t>(at, batch.count, to);
            break;
        case UINT64:
        case TIME:  // seconds and nanoseconds, as Variant keeps them
        case DURATION:
            DecodeBatch<uint64_t>(at, batch.count, to);
            break;
        case INT8:
            DecodeBatch<int8_t>(at, batch.count, to);
            break;
        case INT16:
            DecodeBatch<int16_t>(at, batch.count, to);
            break;
        case INT32:
            DecodeBatch<int32_t>(at, batch.count, to);
            break;
        case INT64:
            DecodeBatch<int64_t>(at, batch.count, to);
            break;
        case FLOAT32:
            DecodeBatch<float>(at, batch.count, to);
            break;
        case FLOAT64:
            DecodeBatch<double>(at, batch.count, to);
            break;
        case STRING:
        case OTHER:
            break;
        }
    }
}

} // namespace RosMsgParser

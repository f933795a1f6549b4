#ifndef ROS_MSG_PARSER_VARIANT_H
#define ROS_MSG_PARSER_VARIANT_H

#include "ros_type.h"

#include <cstdint>
#include <stdexcept>

namespace RosMsgParser {

// A number that a double cannot represent exactly (a large 64-bit integer).
class RangeException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One decoded number, time or duration, in its own type.
class Variant {
public:
    Variant() = default;
    // A value from the 64 bits it is kept in: integers widened to 64 bits (signed ones with their
    // sign), floats as double, times as their two words in wire order.
    static Variant FromBits(BuiltinType type, uint64_t bits)
    {
        Variant v;
        v.type_ = type;
        v.unsigned_ = bits;
        return v;
    }

    BuiltinType getTypeID() const { return type_; }
    // As double; times as seconds with the nanoseconds as fraction. Throws RangeException for a
    // 64-bit integer that the double would change.
    double convertToDouble() const;

private:
    struct Words {
        uint32_t seconds;
        uint32_t nanoseconds;
    };
    union {
        int64_t signed_ = 0;
        uint64_t unsigned_;
        double real_;
        Words stamp_;
    };
    BuiltinType type_ = OTHER;
};

} // namespace RosMsgParser

#endif

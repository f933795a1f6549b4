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
    static Variant Signed(BuiltinType type, int64_t value)
    {
        Variant v;
        v.type_ = type;
        v.signed_ = value;
        return v;
    }
    static Variant Unsigned(BuiltinType type, uint64_t value)
    {
        Variant v;
        v.type_ = type;
        v.unsigned_ = value;
        return v;
    }
    static Variant Real(BuiltinType type, double value)
    {
        Variant v;
        v.type_ = type;
        v.real_ = value;
        return v;
    }
    // Time and duration: the two 32-bit words as on the wire (unsigned for time, signed for duration).
    static Variant Stamp(BuiltinType type, uint32_t seconds, uint32_t nanoseconds)
    {
        Variant v;
        v.type_ = type;
        v.stamp_ = {seconds, nanoseconds};
        return v;
    }

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
    int64_t signedValue() const { return signed_; }
    uint64_t unsignedValue() const { return unsigned_; }

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

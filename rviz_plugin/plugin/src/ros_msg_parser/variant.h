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
    // Time and duration: seconds and nanoseconds as on the wire.
    static Variant Stamp(BuiltinType type, int64_t seconds, int64_t nanoseconds)
    {
        Variant v;
        v.type_ = type;
        v.signed_ = seconds;
        v.nanoseconds_ = nanoseconds;
        return v;
    }

    BuiltinType getTypeID() const { return type_; }
    // As double; times as seconds with the nanoseconds as fraction. Throws RangeException for a
    // 64-bit integer that the double would change.
    double convertToDouble() const;
    int64_t signedValue() const { return signed_; }
    uint64_t unsignedValue() const { return unsigned_; }

private:
    BuiltinType type_ = OTHER;
    union {
        int64_t signed_;
        uint64_t unsigned_;
        double real_;
    };
    int64_t nanoseconds_ = 0;
};

} // namespace RosMsgParser

#endif

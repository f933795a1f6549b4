#ifndef ROS_MSG_PARSER_ROS_TYPE_H
#define ROS_MSG_PARSER_ROS_TYPE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace RosMsgParser {

// Built-in field types of ROS 1 messages; OTHER is a message type.
enum BuiltinType : uint8_t {
    BOOL,
    BYTE,
    CHAR,
    UINT8,
    UINT16,
    UINT32,
    UINT64,
    INT8,
    INT16,
    INT32,
    INT64,
    FLOAT32,
    FLOAT64,
    TIME,
    DURATION,
    STRING,
    OTHER,
};

// Bytes on the wire of a fixed-size built-in type; 0 for string and message types.
std::size_t BuiltinSize(BuiltinType type);

// A type name as it appears in a definition: "float64", "Header", "geometry_msgs/Point".
class ROSType {
public:
    ROSType() = default;
    explicit ROSType(const std::string& name);

    const std::string& baseName() const { return baseName_; }
    const std::string& msgName() const { return msgName_; }
    const std::string& pkgName() const { return pkgName_; }
    bool isBuiltin() const { return id_ != OTHER; }
    BuiltinType typeID() const { return id_; }
    // Gives a message type named without its package the package it belongs to.
    void setPkgName(const std::string& package);

    bool operator==(const ROSType& other) const { return baseName_ == other.baseName_; }
    bool operator!=(const ROSType& other) const { return !(*this == other); }
    bool operator<(const ROSType& other) const { return baseName_ < other.baseName_; }

private:
    std::string baseName_;
    std::string msgName_;
    std::string pkgName_;
    BuiltinType id_ = OTHER;
};

} // namespace RosMsgParser

template <>
struct std::hash<RosMsgParser::ROSType> {
    std::size_t operator()(const RosMsgParser::ROSType& type) const { return std::hash<std::string>()(type.baseName()); }
};

#endif

#include "ros_type.h"

#include <unordered_map>

namespace RosMsgParser {

namespace {
const std::unordered_map<std::string, BuiltinType>& BuiltinNames()
{
    static const std::unordered_map<std::string, BuiltinType> names = {
        {"bool", BOOL},       {"byte", BYTE},       {"char", CHAR},       {"uint8", UINT8},
        {"uint16", UINT16},   {"uint32", UINT32},   {"uint64", UINT64},   {"int8", INT8},
        {"int16", INT16},     {"int32", INT32},     {"int64", INT64},     {"float32", FLOAT32},
        {"float64", FLOAT64}, {"time", TIME},       {"duration", DURATION}, {"string", STRING},
    };
    return names;
}
} // namespace

std::size_t BuiltinSize(BuiltinType type)
{
    switch (type) {
    case BOOL:
    case BYTE:
    case CHAR:
    case UINT8:
    case INT8:
        return 1;
    case UINT16:
    case INT16:
        return 2;
    case UINT32:
    case INT32:
    case FLOAT32:
        return 4;
    case UINT64:
    case INT64:
    case FLOAT64:
    case TIME:
    case DURATION:
        return 8;
    case STRING:
    case OTHER:
        return 0;
    }
    return 0;
}

ROSType::ROSType(const std::string& name) : baseName_(name)
{
    const auto builtin = BuiltinNames().find(name);
    if (builtin != BuiltinNames().end()) {
        id_ = builtin->second;
        msgName_ = name;
        return;
    }
    if (name == "Header") {
        baseName_ = "std_msgs/Header";
    }
    const std::size_t slash = baseName_.find('/');
    if (slash == std::string::npos) {
        msgName_ = baseName_;
    } else {
        pkgName_ = baseName_.substr(0, slash);
        msgName_ = baseName_.substr(slash + 1);
    }
}

void ROSType::setPkgName(const std::string& package)
{
    if (isBuiltin() || !pkgName_.empty()) {
        return;
    }
    pkgName_ = package;
    baseName_ = package + "/" + msgName_;
}

} // namespace RosMsgParser

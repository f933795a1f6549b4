#ifndef ROS_MSG_PARSER_MESSAGE_DEFINITION_H
#define ROS_MSG_PARSER_MESSAGE_DEFINITION_H

#include "ros_type.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace RosMsgParser {

// A definition that cannot be used: bad syntax, an unknown or recursive type.
class ParseError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One line of a definition: a field, or a constant with its value text.
class ROSField {
public:
    ROSField(const ROSType& type, std::string name, bool isArray, int arraySize, std::string value);

    const std::string& name() const { return name_; }
    const ROSType& type() const { return type_; }
    ROSType& mutableType() { return type_; }
    bool isArray() const { return isArray_; }
    // Element count of a fixed array, -1 for a variable one.
    int arraySize() const { return arraySize_; }
    bool isConstant() const { return !value_.empty(); }
    const std::string& value() const { return value_; }

private:
    ROSType type_;
    std::string name_;
    bool isArray_;
    int arraySize_;
    std::string value_;
};

// One message type with its fields in wire order (constants included, flagged as such).
class ROSMessage {
public:
    // Parses one section of a definition (the text between "MSG:" markers).
    explicit ROSMessage(const std::string& definition);

    const ROSType& type() const { return type_; }
    void setType(const ROSType& type) { type_ = type; }
    const std::vector<ROSField>& fields() const { return fields_; }
    std::vector<ROSField>& fields() { return fields_; }

private:
    ROSType type_;
    std::vector<ROSField> fields_;
};

using RosMessageLibrary = std::map<ROSType, std::shared_ptr<ROSMessage>>;

// Splits a full definition, as a connection header carries it, into its messages: the first
// section is rootType, the others follow "MSG: package/Name" lines. Types named without their
// package are resolved against the package of the message that names them, then against any
// known message of that name. Throws ParseError.
RosMessageLibrary ParseMessageDefinitions(const std::string& definition, const ROSType& rootType);

} // namespace RosMsgParser

#endif

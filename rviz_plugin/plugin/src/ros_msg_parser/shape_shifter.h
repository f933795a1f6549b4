#ifndef ROS_MSG_PARSER_SHAPE_SHIFTER_H
#define ROS_MSG_PARSER_SHAPE_SHIFTER_H

#include <ros/message_traits.h>
#include <ros/serialization.h>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace RosMsgParser {

// A message of any type: subscribing with it accepts every publisher of the topic and keeps the
// raw bytes together with the data type, md5sum and definition from the connection header.
class ShapeShifter {
public:
    using Ptr = boost::shared_ptr<ShapeShifter>;
    using ConstPtr = boost::shared_ptr<const ShapeShifter>;

    const std::string& getDataType() const { return datatype; }
    const std::string& getMD5Sum() const { return md5; }
    const std::string& getMessageDefinition() const { return definition; }
    const std::vector<uint8_t>& raw_data() const { return buffer; }
    uint32_t size() const { return static_cast<uint32_t>(buffer.size()); }

    // Takes type and definition from the connection header, before each message.
    void morph(const std::string& md5sum, const std::string& dataType, const std::string& messageDefinition);

    template <typename Stream>
    void read(Stream& stream)
    {
        buffer.resize(stream.getLength());
        std::memcpy(buffer.data(), stream.getData(), stream.getLength());
    }
    template <typename Stream>
    void write(Stream& stream) const
    {
        if (!buffer.empty()) {
            std::memcpy(stream.advance(static_cast<uint32_t>(buffer.size())), buffer.data(), buffer.size());
        }
    }

private:
    std::string md5;
    std::string datatype;
    std::string definition;
    std::vector<uint8_t> buffer;
};

} // namespace RosMsgParser

namespace ros {
namespace message_traits {

template <>
struct IsMessage<RosMsgParser::ShapeShifter> : TrueType {};
template <>
struct IsMessage<const RosMsgParser::ShapeShifter> : TrueType {};

template <>
struct MD5Sum<RosMsgParser::ShapeShifter> {
    static const char* value(const RosMsgParser::ShapeShifter& m) { return m.getMD5Sum().c_str(); }
    static const char* value() { return "*"; }
};
template <>
struct DataType<RosMsgParser::ShapeShifter> {
    static const char* value(const RosMsgParser::ShapeShifter& m) { return m.getDataType().c_str(); }
    static const char* value() { return "*"; }
};
template <>
struct Definition<RosMsgParser::ShapeShifter> {
    static const char* value(const RosMsgParser::ShapeShifter& m) { return m.getMessageDefinition().c_str(); }
};

} // namespace message_traits

namespace serialization {

template <>
struct Serializer<RosMsgParser::ShapeShifter> {
    template <typename Stream>
    inline static void write(Stream& stream, const RosMsgParser::ShapeShifter& m)
    {
        m.write(stream);
    }
    template <typename Stream>
    inline static void read(Stream& stream, RosMsgParser::ShapeShifter& m)
    {
        m.read(stream);
    }
    inline static uint32_t serializedLength(const RosMsgParser::ShapeShifter& m) { return m.size(); }
};

template <>
struct PreDeserialize<RosMsgParser::ShapeShifter> {
    static void notify(const PreDeserializeParams<RosMsgParser::ShapeShifter>& params)
    {
        const auto& header = *params.connection_header;
        const auto find = [&header](const char* key) {
            const auto found = header.find(key);
            return found == header.end() ? std::string() : found->second;
        };
        params.message->morph(find("md5sum"), find("type"), find("message_definition"));
    }
};

} // namespace serialization
} // namespace ros

#endif

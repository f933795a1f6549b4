#include "plot_messages.h"

#include <ros/serialization.h>

namespace plot_test {

const char* const plotDefinition =
    "Header header\n"
    "float64 speed\n"
    "string name\n"
    "Item[] items\n"
    "float32[] values\n"
    "================================================================================\n"
    "MSG: std_msgs/Header\nuint32 seq\ntime stamp\nstring frame_id\n"
    "================================================================================\n"
    "MSG: demo/Item\nint32 id\nfloat64[] samples\n";
const char* const plotType = "demo/Plot";
const char* const plainDefinition = "float64 level\nint32 count\n";
const char* const plainType = "demo/Plain";

namespace {
class Writer {
public:
    template <typename T>
    void Put(const T& value)
    {
        const auto* p = reinterpret_cast<const uint8_t*>(&value);
        bytes.insert(bytes.end(), p, p + sizeof(T));
    }
    void PutText(const std::string& text)
    {
        Put(static_cast<uint32_t>(text.size()));
        bytes.insert(bytes.end(), text.begin(), text.end());
    }
    std::vector<uint8_t> bytes;
};
} // namespace

std::vector<uint8_t> PlotBytes(const PlotMessage& message)
{
    Writer out;
    out.Put(uint32_t{1});
    const auto seconds = static_cast<uint32_t>(message.stamp);
    out.Put(seconds);
    out.Put(static_cast<uint32_t>((message.stamp - seconds) * 1e9 + 0.5));
    out.PutText("map");
    out.Put(message.speed);
    out.PutText(message.name);
    out.Put(static_cast<uint32_t>(message.itemIds.size()));
    for (int32_t id : message.itemIds) {
        out.Put(id);
        out.Put(uint32_t{2});
        out.Put(double(id) * 0.5);
        out.Put(double(id) * 1.5);
    }
    out.Put(static_cast<uint32_t>(message.values.size()));
    for (float value : message.values) {
        out.Put(value);
    }
    return out.bytes;
}

std::vector<uint8_t> PlainBytes(double level, int32_t count)
{
    Writer out;
    out.Put(level);
    out.Put(count);
    return out.bytes;
}

RosMsgParser::ShapeShifter Shape(const std::string& type, const std::string& definition, std::vector<uint8_t> bytes)
{
    RosMsgParser::ShapeShifter shape;
    shape.morph("*", type, definition);
    ros::serialization::IStream in(bytes.data(), static_cast<uint32_t>(bytes.size()));
    shape.read(in);
    return shape;
}

} // namespace plot_test

// Messages per second of run-time parsing (deserializeIntoFlatMsg: parse and flatten) against
// compiled roscpp deserialisation of the same bytes, in one program. Ratio = parser / compiled,
// the median over rounds that time both back to back; the rates are the best of each side.
#include "ros_msg_parser/parser.h"

#include <custom/ObjectArray.h>
#include <sensor_msgs/Image.h>
#include <sensor_msgs/Imu.h>
#include <visualization_msgs/MarkerArray.h>

#include <ros/serialization.h>

#include "../test/support/ros_test_main.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using test_support::Serialize;


// The compiled side decodes into a local that is thrown away: without this the compiler may drop
// the stores into it and the reference would measure less than a real decode.
template <typename T>
void KeepAlive(T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

// Runs body repeatedly for about 0.05 s and returns calls per second.
template <typename Body>
double Rate(Body body)
{
    int calls = 0;
    const auto start = Clock::now();
    double elapsed = 0;
    do {
        for (int i = 0; i < 16; ++i) {
            body();
        }
        calls += 16;
        elapsed = std::chrono::duration<double>(Clock::now() - start).count();
    } while (elapsed < 0.05);
    return calls / elapsed;
}

// Only the case whose name contains this text runs (all when empty).
std::string onlyCase;

template <typename T>
void Compare(const char* name, const T& message)
{
    if (std::string(name).find(onlyCase) == std::string::npos) {
        return;
    }
    const std::vector<uint8_t> bytes = Serialize(message);
    RosMsgParser::Parser parser("/bench", RosMsgParser::ROSType(ros::message_traits::DataType<T>::value()),
                                ros::message_traits::Definition<T>::value());
    parser.setMaxArrayPolicy(RosMsgParser::Parser::KEEP_LARGE_ARRAYS, 100);
    RosMsgParser::FlatMessage flat;
    // Twenty rounds, each timing both sides back to back: the machine's speed drifts between
    // rounds, so the ratio is taken within each round and the median of those is reported, with
    // the best rate of each side.
    double compiled = 0;
    double parsed = 0;
    std::vector<double> ratios;
    for (int round = 0; round < 20; ++round) {
        const double compiledRate = Rate([&]() {
            T copy;
            ros::serialization::IStream in(const_cast<uint8_t*>(bytes.data()), static_cast<uint32_t>(bytes.size()));
            ros::serialization::deserialize(in, copy);
            KeepAlive(copy);
        });
        const double parsedRate =
            Rate([&]() { parser.deserializeIntoFlatMsg(RosMsgParser::Span<uint8_t>(bytes), &flat); });
        compiled = std::max(compiled, compiledRate);
        parsed = std::max(parsed, parsedRate);
        ratios.push_back(parsedRate / compiledRate);
    }
    std::nth_element(ratios.begin(), ratios.begin() + ratios.size() / 2, ratios.end());
    const double ratio = ratios[ratios.size() / 2];
    RosMsgParser::RenamedValues values;
    const double renamed = Rate([&]() {
        parser.deserializeIntoFlatMsg(RosMsgParser::Span<uint8_t>(bytes), &flat);
        RosMsgParser::CreateRenamedValues(flat, values);
    });
    std::printf("%-34s %8zu bytes  compiled %10.0f msg/s  parse+flatten %10.0f msg/s  ratio %.2f  "
                "(+ renamed values %10.0f msg/s)\n",
                name, bytes.size(), compiled, parsed, ratio, renamed);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1) {
        onlyCase = argv[1];
    }
    sensor_msgs::Imu imu;
    imu.header.frame_id = "imu_link";
    Compare("sensor_msgs/Imu", imu);

    visualization_msgs::MarkerArray markers;
    markers.markers.resize(100);
    for (std::size_t i = 0; i < markers.markers.size(); ++i) {
        auto& marker = markers.markers[i];
        marker.header.frame_id = "map";
        marker.ns = "objects";
        marker.id = static_cast<int>(i);
        marker.text = "car " + std::to_string(i);
        marker.points.resize(4);
    }
    Compare("visualization_msgs/MarkerArray x100", markers);

    custom::ObjectArray objects;
    objects.header.frame_id = "camera_front";
    objects.objectList.resize(64);
    for (auto& object : objects.objectList) {
        object.boxPolygon.points.resize(4);
        object.boxImagePolygon.resize(4);
        object.textDisplay = "car";
    }
    Compare("custom/ObjectArray x64", objects);

    sensor_msgs::Image image;
    image.header.frame_id = "camera_front";
    image.width = 1920;
    image.height = 1080;
    image.encoding = "bgr8";
    image.step = 1920 * 3;
    image.data.assign(static_cast<std::size_t>(1920) * 1080 * 3, 7);
    Compare("sensor_msgs/Image 1080p (blob)", image);
    return 0;
}

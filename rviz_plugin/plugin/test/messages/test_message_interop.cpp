// Message identity through a real ROS master: a subscriber of this library's type connects to a
// publisher that announces the agreed sum, and refuses one that announces another.
#include "../support/processes.h"
#include "../support/ros_test_main.h"

#include <custom/ObjectArray.h>
#include <custom/Video.h>

#include <ros/ros.h>
#include <topic_tools/shape_shifter.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>

using namespace std::chrono_literals;

namespace {

template <typename T>
topic_tools::ShapeShifter Morph(const T& message, const std::string& md5sum)
{
    std::vector<uint8_t> buffer = test_support::Serialize(message);
    topic_tools::ShapeShifter shifter;
    shifter.morph(md5sum, ros::message_traits::DataType<T>::value(), ros::message_traits::Definition<T>::value(),
                  "");
    ros::serialization::IStream in(buffer.data(), static_cast<uint32_t>(buffer.size()));
    shifter.read(in);
    return shifter;
}

// Publishes raw bytes of T under md5sum until the subscriber has counted a message or time runs out.
template <typename T>
int Deliver(const T& message, const std::string& md5sum, const std::string& topic)
{
    ros::NodeHandle node;
    std::atomic<int> received{0};
    ros::Subscriber subscriber =
        node.subscribe<T>(topic, 10, [&received](const boost::shared_ptr<const T>&) { ++received; });
    topic_tools::ShapeShifter shifter = Morph(message, md5sum);
    ros::Publisher publisher = shifter.advertise(node, topic, 10);
    test_support::WaitFor(
        [&]() {
            publisher.publish(shifter);
            ros::spinOnce();
            return received > 0;
        },
        3s);
    return received;
}

} // namespace

TEST(MessageInterop, AgreedSumDeliversAndAnotherIsRefused)
{
    custom::ObjectArray objects;
    objects.header.frame_id = "camera_front";
    objects.objectList.resize(2);
    EXPECT_GT(Deliver(objects, "27b138f31833a825d2e198eafec509a8", "/objects_agreed"), 0);
    EXPECT_EQ(Deliver(objects, "00000000000000000000000000000000", "/objects_other"), 0);

    custom::Video video;
    video.data = {0, 0, 0, 1, 0x40, 0x01};
    EXPECT_GT(Deliver(video, "8903b686ebe5db3477e83c6d0bb149f8", "/video_agreed"), 0);
    EXPECT_EQ(Deliver(video, "8903b686ebe5db3477e83c6d0bb149f9", "/video_other"), 0);
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "message_interop_test", []() { return RUN_ALL_TESTS(); });
}

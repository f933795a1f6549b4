#ifndef RVIZ_PLUGIN_TEST_ROS_TEST_MAIN_H
#define RVIZ_PLUGIN_TEST_ROS_TEST_MAIN_H

#include "processes.h"
#include "temp_dir.h"

#include <gtest/gtest.h>
#include <ros/init.h>
#include <ros/serialization.h>

#include <cstdint>
#include <string>
#include <vector>

namespace test_support {

// Runs body with standard output captured and returns what was written.
template <typename Body>
std::string Console(Body body)
{
    testing::internal::CaptureStdout();
    body();
    return testing::internal::GetCapturedStdout();
}

// The wire bytes of a compiled message.
template <typename T>
std::vector<uint8_t> Serialize(const T& message)
{
    const uint32_t length = ros::serialization::serializationLength(message);
    std::vector<uint8_t> buffer(length);
    ros::serialization::OStream out(buffer.data(), length);
    ros::serialization::serialize(out, message);
    return buffer;
}

// Starts a ROS master on a free loopback port for this process, initialises roscpp against it as
// node, and runs body (the tests); the master stops when body returns.
template <typename Body>
int WithRosMaster(int& argc, char** argv, const std::string& node, Body body)
{
    TempDir work;
    RosMaster master(work.Path().string());
    for (const auto& [name, value] : master.RosEnvironment()) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    ros::init(argc, argv, node, ros::init_options::NoSigintHandler);
    ros::start();
    const int result = body();
    ros::shutdown();
    return result;
}

} // namespace test_support

#endif

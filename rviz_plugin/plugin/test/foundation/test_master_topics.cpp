// Asking the master for its topics: the list when it answers, a quick "no" when it is gone, where
// roscpp's own call would wait for it. The tests run in order: the second stops the master.
#include "../support/processes.h"
#include "../support/temp_dir.h"
#include "foundation/master_topics.h"

#include <gtest/gtest.h>
#include <ros/ros.h>
#include <std_msgs/String.h>

#include <chrono>
#include <memory>

namespace {
std::unique_ptr<test_support::RosMaster> master;
}

TEST(MasterTopics, TheListFromTheMaster)
{
    ros::NodeHandle node;
    ros::Publisher publisher = node.advertise<std_msgs::String>("/master_topics_test", 1);
    ros::master::V_TopicInfo topics;
    ASSERT_TRUE(rviz_plugin::GetTopicsWithoutWaiting(topics));
    bool found = false;
    for (const auto& topic : topics) {
        found = found || (topic.name == "/master_topics_test" && topic.datatype == "std_msgs/String");
    }
    EXPECT_TRUE(found);
}

TEST(MasterTopics, AQuickNoWithoutTheMaster)
{
    master.reset();
    ros::master::V_TopicInfo topics;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(rviz_plugin::GetTopicsWithoutWaiting(topics));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    test_support::TempDir work;
    master = std::make_unique<test_support::RosMaster>(work.Path().string());
    for (const auto& [name, value] : master->RosEnvironment()) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    ros::init(argc, argv, "master_topics_test", ros::init_options::NoSigintHandler);
    ros::start();
    const int result = RUN_ALL_TESTS();
    ros::shutdown();
    master.reset();
    return result;
}

// The perception subscribers through a ROS master on loopback: the "Topic" status as messages
// come in, the one-second receiving check, and subscription failures.
#include "../support/processes.h"
#include "../support/ros_test_main.h"
#include "overlay/perception_message_handlers.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <ros/ros.h>

#include <map>

using namespace std::chrono_literals;
using rviz_plugin::ObjectArrayMessageHandler;

namespace {

class PerceptionIntake : public testing::Test {
protected:
    void SetUp() override
    {
        QObject::connect(&handler, &rviz_plugin::MessageHandler::SetStatus,
                         [this](rviz::StatusProperty::Level level, const QString& key, const QString& text) {
                             statuses[key] = {level, text};
                         });
        QObject::connect(&handler, &rviz_plugin::MessageHandler::DeleteStatus,
                         [this](const QString& key) { statuses.erase(key); });
        QObject::connect(&handler, &ObjectArrayMessageHandler::SendMsg,
                         [this](const boost::shared_ptr<const custom::ObjectArray>&) { ++delivered; });
        handler.Initialize();
    }

    // Serves ROS callbacks and Qt timers until predicate holds.
    template <typename Predicate>
    bool Serve(Predicate predicate, std::chrono::milliseconds timeout = 5000ms)
    {
        return test_support::WaitFor(
            [&]() {
                ros::spinOnce();
                QCoreApplication::processEvents();
                return predicate();
            },
            timeout);
    }

    QString Text(const QString& key) const
    {
        const auto found = statuses.find(key);
        return found == statuses.end() ? QString() : found->second.second;
    }

    void Publish(int count)
    {
        for (int index = 0; index < count; ++index) {
            publisher.publish(custom::ObjectArray());
        }
    }

    ros::NodeHandle node;
    ros::Publisher publisher = node.advertise<custom::ObjectArray>("/camera_test/objects", 10);
    ObjectArrayMessageHandler handler;
    std::map<QString, std::pair<rviz::StatusProperty::Level, QString>> statuses;
    int delivered = 0;
};

} // namespace

TEST_F(PerceptionIntake, CountsMessagesAndResubscribingStartsAgain)
{
    handler.OnSubscribe("/camera_test/objects", 10);
    EXPECT_EQ(Text("Topic"), "OK");
    ASSERT_TRUE(Serve([this]() { return publisher.getNumSubscribers() > 0; }));
    Publish(3);
    ASSERT_TRUE(Serve([this]() { return delivered == 3; }));
    EXPECT_EQ(Text("Topic"), "3 data frames received");
    EXPECT_EQ(statuses["Topic"].first, rviz::StatusProperty::Ok);

    handler.OnSubscribe("/camera_test/objects", 10);
    EXPECT_EQ(Text("Topic"), "OK");
    ASSERT_TRUE(Serve([this]() { return publisher.getNumSubscribers() > 0; }));
    Publish(1);
    ASSERT_TRUE(Serve([this]() { return delivered == 4; }));
    EXPECT_EQ(Text("Topic"), "1 data frames received");
}

TEST_F(PerceptionIntake, SilenceRaisesTheReceivingWarningAndDataClearsIt)
{
    handler.OnSubscribe("/camera_test/objects", 10);
    ASSERT_TRUE(Serve([this]() { return !Text("Data receiving failure").isEmpty(); }, 3000ms));
    EXPECT_EQ(Text("Data receiving failure"), "No data was received in the last 1 second.");
    EXPECT_EQ(statuses["Data receiving failure"].first, rviz::StatusProperty::Warn);
    EXPECT_EQ(Text("Topic"), "OK");
    ASSERT_TRUE(Serve([this]() { return publisher.getNumSubscribers() > 0; }));
    Publish(2);
    ASSERT_TRUE(Serve([this]() { return Text("Data receiving failure").isEmpty(); }, 3000ms));

    // After unsubscribing, a pending warning goes at the next tick and nothing more arrives.
    ASSERT_TRUE(Serve([this]() { return !Text("Data receiving failure").isEmpty(); }, 3000ms));
    handler.OnUnsubscribe();
    ASSERT_TRUE(Serve([this]() { return Text("Data receiving failure").isEmpty(); }, 3000ms));
    const int before = delivered;
    Publish(2);
    Serve([]() { return false; }, 300ms);
    EXPECT_EQ(delivered, before);
    EXPECT_FALSE(handler.IsSubscribed());
}

TEST_F(PerceptionIntake, ABadTopicNameIsASubscriptionError)
{
    handler.OnSubscribe("bad topic name!", 10);
    EXPECT_EQ(statuses["Topic"].first, rviz::StatusProperty::Error);
    EXPECT_TRUE(Text("Topic").startsWith("Error subscribing: ")) << Text("Topic").toStdString();
    EXPECT_GT(Text("Topic").size(), QString("Error subscribing: ").size());
    EXPECT_FALSE(handler.IsSubscribed());
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "perception_intake_test", [&]() {
        QCoreApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}

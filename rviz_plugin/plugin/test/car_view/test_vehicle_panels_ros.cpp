// The vehicle panels through a ROS master on loopback: a good message reaches the widget, a bad one
// changes nothing on screen, and a burst reaches the GUI as a few hand-overs of the newest message.
#include "../support/processes.h"
#include "../support/qt_events.h"
#include "../support/ros_test_main.h"
#include "car_view/car_status_view.h"
#include "car_view/control_instruction.h"
#include "road/road_elements_panel.h"
#include "scene_function/scene_fun_panel.h"
#include "traffic/traffic_elements_panel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <ros/ros.h>

#include <cstdlib>

using namespace std::chrono_literals;

namespace {

void ServeFor(std::chrono::milliseconds time)
{
    test_support::ServeEvents([] { return false; }, time);
}

QImage Paint(QWidget& widget)
{
    widget.resize(widget.minimumSize());
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::black);
    widget.render(&image);
    return image;
}

template <typename Message>
ros::Publisher Advertise(ros::NodeHandle& node, const std::string& topic, int subscribers = 1)
{
    ros::Publisher publisher = node.advertise<Message>(topic, 2000);
    EXPECT_TRUE(test_support::ServeEvents([&] { return static_cast<int>(publisher.getNumSubscribers()) >= subscribers; }));
    return publisher;
}

// Publishes good, waits until the panel's picture changes, then publishes bad and checks that the
// picture stays and that the bad field was logged.
template <typename Message>
void ExpectGoodShownBadDropped(QWidget& panel, ros::Publisher& publisher, const Message& good, const Message& bad,
                               const std::string& badLog)
{
    const QImage empty = Paint(panel);
    publisher.publish(good);
    ASSERT_TRUE(test_support::ServeEvents([&] { return Paint(panel) != empty; })) << "the good message was not shown";
    const QImage shown = Paint(panel);
    testing::internal::CaptureStdout();
    publisher.publish(bad);
    ServeFor(1000ms);  // time for the bad message to arrive and be checked, even on a loaded machine
    const std::string log = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(Paint(panel) == shown) << "the bad message changed the picture";
    EXPECT_NE(log.find(badLog), std::string::npos) << log;
}

TEST(VehiclePanelsThroughMaster, CarStatusViewShowsGoodAndDropsBad)
{
    ros::NodeHandle node;
    rviz_plugin::CarStatusView panel;
    panel.onInitialize();
    ros::Publisher publisher = Advertise<custom::VehicleStatus>(node, "TopicVehicleInfo");
    custom::VehicleStatus good;
    good.gear = 4;
    good.vehicleSpeed = 42;
    good.throttle = 0.5;
    custom::VehicleStatus bad = good;
    bad.throttle = 1.5;
    bad.vehicleSpeed = 80;
    ExpectGoodShownBadDropped(panel, publisher, good, bad, "The throttle attribute(1.5000000000000000)");
    EXPECT_DOUBLE_EQ(panel.View()->ThrottleValue(), 50);
}

TEST(VehiclePanelsThroughMaster, ControlInstructionListensOnItsOwnTopic)
{
    ros::NodeHandle node;
    rviz_plugin::ControlInstruction panel;
    panel.onInitialize();
    ros::Publisher publisher = Advertise<custom::VehicleStatus>(node, "TopicVehicleControl");
    custom::VehicleStatus good;
    good.brake = 0.25;
    publisher.publish(good);
    EXPECT_TRUE(test_support::ServeEvents([&] { return panel.View()->BrakeValue() == 25; }));
}

TEST(VehiclePanelsThroughMaster, SceneTrafficAndRoadPanelsShowGoodAndDropBad)
{
    ros::NodeHandle node;
    rviz_plugin::SceneFunPanel scene;
    scene.onInitialize();
    ros::Publisher keyObjects = Advertise<custom::KeyObject>(node, "TopicKeyObjects");
    ros::Publisher navigation = Advertise<custom::NavigationStatus>(node, "TopicNavigationStatus");
    custom::KeyObject object;
    object.speedOrientation.w = 1;
    object.lateralDistance = 4;
    object.verticalDistance = 12;
    custom::KeyObject badObject = object;
    badObject.speedOrientation.w = 0;
    badObject.lateralDistance = -4;
    ExpectGoodShownBadDropped(scene, keyObjects, object, badObject, "x^2+y^2+z^2+w^2=0.0000000000000000");
    custom::NavigationStatus status;
    status.navStatus = 6;
    custom::NavigationStatus badStatus;
    badStatus.navStatus = 16;
    ExpectGoodShownBadDropped(scene, navigation, status, badStatus, "The navStatus attribute(16)");

    rviz_plugin::TrafficElementsPanel traffic;
    traffic.onInitialize();
    ros::Publisher trafficInfo = Advertise<custom::TrafficInfo>(node, "TopicTrafficInfo");
    ros::Publisher location = Advertise<custom::LocationStatus>(node, "TopicLocationStatus");
    custom::TrafficInfo info;
    info.trafficLightState = 3;
    info.speed_limit = 60;
    custom::TrafficInfo badInfo = info;
    badInfo.speed_limit = 300.0001;
    badInfo.trafficLightState = 1;
    ExpectGoodShownBadDropped(traffic, trafficInfo, info, badInfo, "The speed_limit attribute(300.0000999");
    custom::LocationStatus fix;
    fix.locationType = 3;
    fix.searchedSattelites = 12;
    custom::LocationStatus badFix = fix;
    badFix.locationType = 7;
    ExpectGoodShownBadDropped(traffic, location, fix, badFix, "The locationType attribute(7)");

    rviz_plugin::RoadElementsPanel road;
    road.onInitialize();
    ros::Publisher roadInfo = Advertise<custom::RoadInfo>(node, "TopicRoadInfo");
    custom::RoadInfo lane;
    lane.laneType = 15;
    lane.canChangeLane = 1;
    custom::RoadInfo badLane = lane;
    badLane.laneType = 16;
    badLane.canChangeLane = 0;
    ExpectGoodShownBadDropped(road, roadInfo, lane, badLane, "The laneType attribute(16)");
}

TEST(VehiclePanelsThroughMaster, ABurstReachesTheGuiAsAFewHandOversOfTheNewest)
{
    ros::NodeHandle node;
    rviz_plugin::CarStatusView panel;
    panel.onInitialize();
    int handOvers = 0;
    double lastThrottle = -1;
    QObject::connect(&panel, &rviz_plugin::CarViewPanel::ValueChanged, [&](const custom::VehicleStatus& status) {
        ++handOvers;
        lastThrottle = status.throttle;
    });
    ros::Publisher publisher = Advertise<custom::VehicleStatus>(node, "TopicVehicleInfo");
    constexpr int burst = 1000;
    custom::VehicleStatus status;
    const ros::WallTime start = ros::WallTime::now();
    for (int index = 1; index <= burst; ++index) {
        status.throttle = index / static_cast<double>(burst);
        publisher.publish(status);
    }
    EXPECT_TRUE(test_support::ServeEvents([&] { return lastThrottle == 1.0; })) << "last throttle " << lastThrottle;
    const double seconds = (ros::WallTime::now() - start).toSec();
    // At most one hand-over a frame, plus the first.
    EXPECT_LE(handOvers, static_cast<int>(seconds * 1000 / rviz_plugin::VehiclePanel::framePeriodMs) + 2)
        << seconds << " s";
    EXPECT_LT(handOvers, burst / 10);
}

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "vehicle_panels_test", [&]() {
        QApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}

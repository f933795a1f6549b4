// The vehicle panels' checkers on every limit of their tables, just inside and just outside, and the
// log lines they write.
#include "vehicle_panels_logic/key_object_checker.h"
#include "vehicle_panels_logic/location_status_checker.h"
#include "vehicle_panels_logic/navigation_status_checker.h"
#include "vehicle_panels_logic/road_info_checker.h"
#include "vehicle_panels_logic/traffic_info_checker.h"
#include "vehicle_panels_logic/vehicle_status_checker.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

namespace {

using rviz_plugin::KeyObjectChecker;
using rviz_plugin::LocationStatusChecker;
using rviz_plugin::NavigationStatusChecker;
using rviz_plugin::RoadInfoChecker;
using rviz_plugin::TrafficInfoChecker;
using rviz_plugin::VehicleStatusChecker;

template <typename Checker, typename Message>
bool Valid(const Message& message, std::string* log = nullptr)
{
    testing::internal::CaptureStdout();
    const bool valid = Checker(message).IsMsgValid();
    const std::string out = testing::internal::GetCapturedStdout();
    if (log) {
        *log = out;
    }
    return valid;
}

int Count(const std::string& text, const std::string& part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

custom::VehicleStatus GoodStatus()
{
    custom::VehicleStatus status;
    status.gear = 4;
    status.steeringWheelAngle = 12.5;
    status.steeringWheelRadians = 0.2;
    status.vehicleSpeed = 42;
    status.vehicleAcceleration = 0.5;
    status.turnLight = 1;
    status.hazardLights = 0;
    status.throttle = 0.3;
    status.brake = 0;
    return status;
}

// A table row: sets one field to a value and says whether the message must pass.
template <typename Message>
struct Case {
    const char* field;
    std::function<void(Message&)> set;
    bool passes;
};

template <typename Checker, typename Message>
void ExpectCases(const Message& good, const std::vector<Case<Message>>& cases)
{
    for (const Case<Message>& entry : cases) {
        Message message = good;
        entry.set(message);
        std::string log;
        EXPECT_EQ(Valid<Checker>(message, &log), entry.passes) << entry.field << "\n" << log;
        if (!entry.passes) {
            EXPECT_NE(log.find(std::string("The ") + entry.field + " attribute("), std::string::npos)
                << entry.field << "\n" << log;
        } else {
            EXPECT_EQ(log, "") << entry.field;
        }
    }
}

TEST(VehicleStatusChecker, EveryLimitJustInsideAndJustOutside)
{
    using M = custom::VehicleStatus;
    const double radians = 5 * 3.1415926;
    ExpectCases<VehicleStatusChecker, M>(
        GoodStatus(),
        {{"gear", [](M& m) { m.gear = 15; }, true},
         {"gear", [](M& m) { m.gear = 16; }, false},
         {"gear", [](M& m) { m.gear = 0; }, true},
         {"steeringWheelAngle", [](M& m) { m.steeringWheelAngle = 900; }, true},
         {"steeringWheelAngle", [](M& m) { m.steeringWheelAngle = std::nextafter(900.0, 1000.0); }, false},
         {"steeringWheelAngle", [](M& m) { m.steeringWheelAngle = -900; }, true},
         {"steeringWheelAngle", [](M& m) { m.steeringWheelAngle = std::nextafter(-900.0, -1000.0); }, false},
         {"steeringWheelRadians", [](M& m) { m.steeringWheelRadians = 15.7; }, true},
         {"steeringWheelRadians", [](M& m) { m.steeringWheelRadians = 15.8; }, false},
         {"steeringWheelRadians", [=](M& m) { m.steeringWheelRadians = -radians - DBL_EPSILON / 2; }, true},
         {"steeringWheelRadians", [=](M& m) { m.steeringWheelRadians = -radians - 1e-9; }, false},
         {"vehicleSpeed", [](M& m) { m.vehicleSpeed = -300; }, true},
         {"vehicleSpeed", [](M& m) { m.vehicleSpeed = 300.001; }, false},
         {"vehicleAcceleration", [](M& m) { m.vehicleAcceleration = 100; }, true},
         {"vehicleAcceleration", [](M& m) { m.vehicleAcceleration = -100.5; }, false},
         {"turnLight", [](M& m) { m.turnLight = 3; }, true},
         {"turnLight", [](M& m) { m.turnLight = 4; }, false},
         {"hazardLights", [](M& m) { m.hazardLights = 1; }, true},
         {"hazardLights", [](M& m) { m.hazardLights = 2; }, false},
         {"throttle", [](M& m) { m.throttle = 1 + DBL_EPSILON; }, true},
         {"throttle", [](M& m) { m.throttle = 1.5; }, false},
         {"throttle", [](M& m) { m.throttle = -DBL_EPSILON; }, true},
         {"brake", [](M& m) { m.brake = 1; }, true},
         {"brake", [](M& m) { m.brake = -0.001; }, false},
         {"brake", [](M& m) { m.brake = std::numeric_limits<double>::quiet_NaN(); }, false}});
}

TEST(VehicleStatusChecker, LogsEveryFaultyFieldInOrderWithFixedLimitsAndNumericBytes)
{
    custom::VehicleStatus status = GoodStatus();
    status.gear = 16;
    status.vehicleSpeed = 301.25;
    status.brake = 2;
    std::string log;
    EXPECT_FALSE(Valid<VehicleStatusChecker>(status, &log));
    EXPECT_EQ(Count(log, "out of range"), 3) << log;
    EXPECT_EQ(Count(log, "[Error][VehicleModels]"), 3) << log;
    EXPECT_NE(log.find("The gear attribute(16) of the custom::VehicleStatus data type is out of range. Adjust the "
                       "value to ensure it is within [0, 15])"),
              std::string::npos)
        << log;
    EXPECT_NE(log.find("The vehicleSpeed attribute(301.2500000000000000) of the custom::VehicleStatus data type is "
                       "out of range. Adjust the value to ensure it is within [-300.0000000000000000, "
                       "300.0000000000000000])"),
              std::string::npos)
        << log;
    EXPECT_LT(log.find("gear attribute"), log.find("vehicleSpeed attribute"));
    EXPECT_LT(log.find("vehicleSpeed attribute"), log.find("brake attribute"));
}

TEST(KeyObjectChecker, LimitsOrientationNormAndItsOwnText)
{
    using M = custom::KeyObject;
    M good;
    good.id = 7;
    good.classification = 1;
    good.speed = 10;
    good.speedOrientation.w = 1;
    good.lateralDistance = 3;
    good.verticalDistance = 20;
    ExpectCases<KeyObjectChecker, M>(
        good, {{"id", [](M& m) { m.id = 0; }, true},
               {"id", [](M& m) { m.id = -1; }, false},
               {"id", [](M& m) { m.id = 2147483647; }, true},
               {"classification", [](M& m) { m.classification = 8; }, true},
               {"classification", [](M& m) { m.classification = 9; }, false},
               {"speed", [](M& m) { m.speed = 300; }, true},
               {"speed", [](M& m) { m.speed = -300.5; }, false},
               {"speedOrientation", [](M& m) { m.speedOrientation.w = std::sqrt(0.99); }, true},
               {"speedOrientation", [](M& m) { m.speedOrientation.w = std::sqrt(0.98); }, false},
               {"speedOrientation", [](M& m) { m.speedOrientation.w = std::sqrt(1.0099); }, true},
               {"speedOrientation", [](M& m) { m.speedOrientation.w = 0; }, false},
               {"lateralDistance", [](M& m) { m.lateralDistance = -1000; }, true},
               {"lateralDistance", [](M& m) { m.lateralDistance = 1000.01; }, false},
               {"verticalDistance", [](M& m) { m.verticalDistance = 1000; }, true},
               {"verticalDistance", [](M& m) { m.verticalDistance = -1001; }, false}});
    M zero = good;
    zero.speedOrientation.w = 0;
    std::string log;
    EXPECT_FALSE(Valid<KeyObjectChecker>(zero, &log));
    EXPECT_NE(log.find("The speedOrientation attribute(x^2+y^2+z^2+w^2=0.0000000000000000) of the custom::KeyObject "
                       "data type is out of range. Adjust the value to ensure it is within [0.9900000000000000, "
                       "1.0100000000000000])"),
              std::string::npos)
        << log;
    EXPECT_NE(log.find("[Error][SceneView]"), std::string::npos) << log;
}

TEST(NavigationAndLocationCheckers, EveryLimit)
{
    using N = custom::NavigationStatus;
    ExpectCases<NavigationStatusChecker, N>(N(), {{"navSceneType", [](N& m) { m.navSceneType = 7; }, true},
                                                  {"navSceneType", [](N& m) { m.navSceneType = 8; }, false},
                                                  {"navStatus", [](N& m) { m.navStatus = 15; }, true},
                                                  {"navStatus", [](N& m) { m.navStatus = 16; }, false}});
    using L = custom::LocationStatus;
    ExpectCases<LocationStatusChecker, L>(L(), {{"searchedSattelites", [](L& m) { m.searchedSattelites = 100; }, true},
                                                {"searchedSattelites", [](L& m) { m.searchedSattelites = 101; }, false},
                                                {"locationType", [](L& m) { m.locationType = 6; }, true},
                                                {"locationType", [](L& m) { m.locationType = 7; }, false},
                                                {"locationType", [](L& m) { m.locationType = 0; }, true}});
    L bad;
    bad.searchedSattelites = 200;
    std::string log;
    EXPECT_FALSE(Valid<LocationStatusChecker>(bad, &log));
    EXPECT_NE(log.find("[Error][TrafficView]"), std::string::npos) << log;
    EXPECT_NE(log.find("The searchedSattelites attribute(200) of the custom::LocationStatus data type"),
              std::string::npos)
        << log;
}

TEST(TrafficInfoChecker, EveryLimitAndTheSpeedLimitsLowerEdge)
{
    using M = custom::TrafficInfo;
    ExpectCases<TrafficInfoChecker, M>(
        M(), {{"trafficLightState", [](M& m) { m.trafficLightState = 3; }, true},
              {"trafficLightState", [](M& m) { m.trafficLightState = 4; }, false},
              {"trafficLightReservedTime", [](M& m) { m.trafficLightReservedTime = 1000; }, true},
              {"trafficLightReservedTime", [](M& m) { m.trafficLightReservedTime = 1001; }, false},
              {"trafficLightReservedTime", [](M& m) { m.trafficLightReservedTime = -1; }, false},
              {"trafficLightDistance", [](M& m) { m.trafficLightDistance = -1000000; }, true},
              {"trafficLightDistance", [](M& m) { m.trafficLightDistance = 1000000.5; }, false},
              {"trafficLightType", [](M& m) { m.trafficLightType = 7; }, true},
              {"trafficLightType", [](M& m) { m.trafficLightType = 8; }, false},
              {"speed_limit", [](M& m) { m.speed_limit = 300; }, true},
              {"speed_limit", [](M& m) { m.speed_limit = 300.0001; }, false},
              {"speed_limit", [](M& m) { m.speed_limit = -DBL_EPSILON / 2; }, true},
              {"speed_limit", [](M& m) { m.speed_limit = -DBL_EPSILON; }, false},
              {"trafficSign", [](M& m) { m.trafficSign = 32; }, true},
              {"trafficSign", [](M& m) { m.trafficSign = 33; }, false},
              {"trafficSign", [](M& m) { m.trafficSign = 0; }, true}});
}

TEST(RoadInfoChecker, EveryLimitAndEveryFailingFieldLogged)
{
    using M = custom::RoadInfo;
    ExpectCases<RoadInfoChecker, M>(
        M(), {{"laneSpeedLimit", [](M& m) { m.laneSpeedLimit = 300; }, true},
              {"laneSpeedLimit", [](M& m) { m.laneSpeedLimit = -0.5; }, false},
              {"laneType", [](M& m) { m.laneType = 15; }, true},
              {"laneType", [](M& m) { m.laneType = 16; }, false},
              {"leftLaneType", [](M& m) { m.leftLaneType = 16; }, false},
              {"rightLaneType", [](M& m) { m.rightLaneType = 255; }, false},
              {"frontIntersectionType", [](M& m) { m.frontIntersectionType = 8; }, true},
              {"frontIntersectionType", [](M& m) { m.frontIntersectionType = 9; }, false},
              {"distanceToIntersection", [](M& m) { m.distanceToIntersection = 1000000; }, true},
              {"distanceToIntersection", [](M& m) { m.distanceToIntersection = 1000000.5; }, false},
              {"roadResidueLength", [](M& m) { m.roadResidueLength = 50000000; }, true},
              {"roadResidueLength", [](M& m) { m.roadResidueLength = -1; }, false},
              {"distanceToEnd", [](M& m) { m.distanceToEnd = 50000000.5; }, false}});
    M two;
    two.laneType = 16;
    two.distanceToEnd = -2;
    std::string log;
    EXPECT_FALSE(Valid<RoadInfoChecker>(two, &log));
    EXPECT_EQ(Count(log, "of the custom::RoadInfo data type is out of range"), 2) << log;
    EXPECT_NE(log.find("[Error][RoadView]"), std::string::npos) << log;
}

} // namespace

#include "vehicle_state.h"

#include <algorithm>
#include <cmath>

namespace simulated_car {

namespace {

constexpr double lanePeriod = 20;    // seconds between lane changes
constexpr double signalLead = 3;     // seconds of turn light before one
constexpr double changeTime = 4;     // seconds a lane change takes
constexpr double speedPeriod = 40;   // seconds of one speed ramp up and down
constexpr double lightPhase = 2;     // seconds each lamp of the front camera's light stays lit

double Speed(double t)
{
    if (t < 2) {
        return 0;
    }
    return 30 + 25 * std::sin(2 * M_PI * (t - 2) / speedPeriod - M_PI / 2) + 25;
}

double Acceleration(double t)
{
    return (Speed(t + 0.5) - Speed(t - 0.5)) / 3.6;
}

// Seconds into the present lane change cycle.
double Cycle(double t)
{
    return std::fmod(t, lanePeriod);
}

bool Signalling(double t)
{
    const double cycle = Cycle(t);
    return cycle >= lanePeriod - signalLead - changeTime && cycle < lanePeriod - changeTime / 2;
}

bool Changing(double t)
{
    return Cycle(t) >= lanePeriod - changeTime;
}

// Lane changes alternate left and right.
bool ToTheLeft(double t)
{
    return static_cast<long>(t / lanePeriod) % 2 == 0;
}

} // namespace

custom::VehicleStatus VehicleState::Status(double t) const
{
    custom::VehicleStatus status;
    status.header.stamp = ros::Time::now();
    status.gear = t < 2 ? 1 : 4;
    double angle = 0;
    if (Changing(t)) {
        const double phase = (Cycle(t) - (lanePeriod - changeTime)) / changeTime;
        angle = (ToTheLeft(t) ? 1 : -1) * 45 * std::sin(2 * M_PI * phase);
    }
    status.steeringWheelAngle = angle;
    status.steeringWheelRadians = angle * M_PI / 180;
    status.vehicleSpeed = Speed(t);
    status.vehicleAcceleration = Acceleration(t);
    status.turnLight = Signalling(t) ? (ToTheLeft(t) ? 1 : 2) : 0;
    status.hazardLights = 0;
    const double acceleration = status.vehicleAcceleration;
    status.throttle = std::clamp(0.15 + acceleration / 4, 0.0, 1.0);
    status.brake = std::clamp(-acceleration / 3, 0.0, 1.0);
    return status;
}

custom::VehicleStatus VehicleState::Control(double t) const
{
    return Status(t + 0.3);
}

custom::KeyObject VehicleState::KeyObject(double t) const
{
    custom::KeyObject object;
    object.header.stamp = ros::Time::now();
    object.id = 100 + static_cast<int>(t / lanePeriod) % 5;
    object.classification = 1;
    object.speed = std::max(0.0, Speed(t) - 5);
    const double yaw = 0.2 * std::sin(t / 3);  // radians about z
    object.speedOrientation.z = std::sin(yaw / 2);
    object.speedOrientation.w = std::cos(yaw / 2);
    object.lateralDistance = 1.5 * std::sin(t / 5);
    object.verticalDistance = 8 + 6 * std::sin(t / 7);
    return object;
}

custom::NavigationStatus VehicleState::Navigation(double t) const
{
    custom::NavigationStatus status;
    status.header.stamp = ros::Time::now();
    status.navSceneType = 4;  // urban
    if (t < 2) {
        status.navStatus = 4;  // start
    } else if (Changing(t)) {
        status.navStatus = ToTheLeft(t) ? 9 : 10;  // merge left or right
    } else {
        status.navStatus = 6;  // keep lane
    }
    return status;
}

custom::LocationStatus VehicleState::Location(double t) const
{
    custom::LocationStatus location;
    location.header.stamp = ros::Time::now();
    location.searchedSattelites = static_cast<uint8_t>(14 + static_cast<int>(t / 10) % 4);
    location.locationType = 3;  // rtk
    location.locationState = 4;
    return location;
}

custom::TrafficInfo VehicleState::Traffic(double t) const
{
    custom::TrafficInfo info;
    info.header.stamp = ros::Time::now();
    // The front camera shows red, then green, then yellow, each for two seconds.
    const double inCycle = std::fmod(t, 3 * lightPhase);
    const int phase = static_cast<int>(inCycle / lightPhase);
    info.trafficLightState = phase == 0 ? 3 : (phase == 1 ? 1 : 2);
    info.trafficLightReservedTime = static_cast<int32_t>(std::ceil(lightPhase - std::fmod(inCycle, lightPhase)));
    info.trafficLightDistance = 120 - std::fmod(t * 10, 100);
    info.trafficLightType = 1;
    info.speed_limit = 60;
    info.trafficSign = 14;  // slow down
    return info;
}

custom::RoadInfo VehicleState::Road(double t) const
{
    custom::RoadInfo road;
    road.header.stamp = ros::Time::now();
    road.laneId = 4200000000ULL + static_cast<uint64_t>(t / lanePeriod);
    road.laneType = 0;
    road.leftLaneType = 3;
    road.rightLaneType = 8;
    road.canChangeLane = Changing(t) || Signalling(t) ? 1 : 0;
    road.canDriveByLane = 1;
    road.roadCurvature = 0.0012 * std::sin(t / 9);
    road.roadGradient = 1.5;
    road.distanceToIntersection = 350 - std::fmod(t * 12, 300);
    road.roadResidueLength = 12500 - std::fmod(t * 15, 5000);
    road.distanceToEnd = 48200 - t * 15;
    road.frontIntersectionType = 1;
    road.laneSpeedLimit = 60;
    return road;
}

void VehicleState::BreakOneField(custom::VehicleStatus& status, unsigned index)
{
    switch (index % 4) {
    case 0: status.gear = 16; break;
    case 1: status.throttle = 1.5; break;
    case 2: status.steeringWheelAngle = 1000; break;
    default: status.vehicleSpeed = -400; break;
    }
}

} // namespace simulated_car

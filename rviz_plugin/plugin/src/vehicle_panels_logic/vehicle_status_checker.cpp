#include "vehicle_status_checker.h"

#include <cfloat>

namespace rviz_plugin {

VehicleStatusChecker::VehicleStatusChecker(const custom::VehicleStatus& message)
    : message(message), report("VehicleModels", "custom::VehicleStatus", fieldWidth, precision)
{
}

bool VehicleStatusChecker::IsMsgValid() const
{
    // Bitwise and: every check runs, so every faulty field is logged.
    return IsGearValid() & IsSteeringWheelAngleValid() & IsSteeringWheelRadiansValid() & IsVehicleSpeedValid() &
           IsVehicleAccelerationValid() & IsTurnLightValid() & IsHazardLightsValid() & IsThrottleValid() &
           IsBrakeValid();
}

bool VehicleStatusChecker::IsGearValid() const
{
    return report.CheckInteger("gear", message.gear, 0, 15);
}

bool VehicleStatusChecker::IsSteeringWheelAngleValid() const
{
    return report.CheckReal("steeringWheelAngle", message.steeringWheelAngle, -900, 900);
}

bool VehicleStatusChecker::IsSteeringWheelRadiansValid() const
{
    return report.CheckReal("steeringWheelRadians", message.steeringWheelRadians, -5 * pi, 5 * pi, DBL_EPSILON);
}

bool VehicleStatusChecker::IsVehicleSpeedValid() const
{
    return report.CheckReal("vehicleSpeed", message.vehicleSpeed, -300, 300);
}

bool VehicleStatusChecker::IsVehicleAccelerationValid() const
{
    return report.CheckReal("vehicleAcceleration", message.vehicleAcceleration, -100, 100);
}

bool VehicleStatusChecker::IsTurnLightValid() const
{
    return report.CheckInteger("turnLight", message.turnLight, 0, 3);
}

bool VehicleStatusChecker::IsHazardLightsValid() const
{
    return report.CheckInteger("hazardLights", message.hazardLights, 0, 1);
}

bool VehicleStatusChecker::IsThrottleValid() const
{
    return report.CheckReal("throttle", message.throttle, 0, 1, DBL_EPSILON);
}

bool VehicleStatusChecker::IsBrakeValid() const
{
    return report.CheckReal("brake", message.brake, 0, 1, DBL_EPSILON);
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_VEHICLE_STATUS_CHECKER_H
#define RVIZ_PLUGIN_VEHICLE_STATUS_CHECKER_H

#include "range_report.h"

#include <custom/VehicleStatus.h>

namespace rviz_plugin {

// Checks one custom::VehicleStatus as a whole; made on the stack for each message.
class VehicleStatusChecker {
public:
    explicit VehicleStatusChecker(const custom::VehicleStatus& message);

    // Runs every check (each failing field logs) and passes only when all pass.
    bool IsMsgValid() const;

    bool IsGearValid() const;
    bool IsSteeringWheelAngleValid() const;
    bool IsSteeringWheelRadiansValid() const;
    bool IsVehicleSpeedValid() const;
    bool IsVehicleAccelerationValid() const;
    bool IsTurnLightValid() const;
    bool IsHazardLightsValid() const;
    bool IsThrottleValid() const;
    bool IsBrakeValid() const;

private:
    const custom::VehicleStatus& message;
    const double pi = 3.1415926;
    const int fieldWidth = 4;
    const int precision = 16;
    RangeReport report;
};

} // namespace rviz_plugin

#endif

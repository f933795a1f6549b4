#ifndef SIMULATED_CAR_VEHICLE_STATE_H
#define SIMULATED_CAR_VEHICLE_STATE_H

#include <custom/KeyObject.h>
#include <custom/LocationStatus.h>
#include <custom/NavigationStatus.h>
#include <custom/RoadInfo.h>
#include <custom/TrafficInfo.h>
#include <custom/VehicleStatus.h>

namespace simulated_car {

// The car's own state along the drive the cameras show: it starts in park, pulls away in drive, the
// speed ramps up and down, and every 20 s it signals and changes lane. The traffic light and its
// countdown follow the front camera's light.
class VehicleState {
public:
    custom::VehicleStatus Status(double t) const;   // what the car reports
    custom::VehicleStatus Control(double t) const;  // what it is told: a little ahead of the status
    custom::KeyObject KeyObject(double t) const;
    custom::NavigationStatus Navigation(double t) const;
    custom::LocationStatus Location(double t) const;
    custom::TrafficInfo Traffic(double t) const;
    custom::RoadInfo Road(double t) const;

    // Puts one field out of range, a different one each time (index counts the faults sent).
    static void BreakOneField(custom::VehicleStatus& status, unsigned index);
};

} // namespace simulated_car

#endif

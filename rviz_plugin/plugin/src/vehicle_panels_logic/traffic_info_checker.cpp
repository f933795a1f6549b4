#include "traffic_info_checker.h"

#include <cfloat>

namespace rviz_plugin {

TrafficInfoChecker::TrafficInfoChecker(const custom::TrafficInfo& message)
    : message(message), report("TrafficView", "custom::TrafficInfo")
{
}

bool TrafficInfoChecker::IsMsgValid() const
{
    return IsTrafficLightStateValid() & IsTrafficLightReservedTimeValid() & IsTrafficLightDistanceValid() &
           IsTrafficLightTypeValid() & IsSpeedLimitValid() & IsTrafficSignValid();
}

bool TrafficInfoChecker::IsTrafficLightStateValid() const
{
    return report.CheckInteger("trafficLightState", message.trafficLightState, 0, 3);
}

bool TrafficInfoChecker::IsTrafficLightReservedTimeValid() const
{
    return report.CheckInteger("trafficLightReservedTime", message.trafficLightReservedTime, 0, 1000);
}

bool TrafficInfoChecker::IsTrafficLightDistanceValid() const
{
    return report.CheckReal("trafficLightDistance", message.trafficLightDistance, -1000000, 1000000);
}

bool TrafficInfoChecker::IsTrafficLightTypeValid() const
{
    return report.CheckInteger("trafficLightType", message.trafficLightType, 0, 7);
}

bool TrafficInfoChecker::IsSpeedLimitValid() const
{
    const double low = 0;
    const double high = 300;
    if (message.speed_limit > low - DBL_EPSILON && message.speed_limit <= high) {
        return true;
    }
    report.Fail("speed_limit", report.Fixed(message.speed_limit), report.Fixed(low), report.Fixed(high));
    return false;
}

bool TrafficInfoChecker::IsTrafficSignValid() const
{
    return report.CheckInteger("trafficSign", message.trafficSign, 0, 32);
}

} // namespace rviz_plugin

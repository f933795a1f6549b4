#include "road_info_checker.h"

namespace rviz_plugin {

RoadInfoChecker::RoadInfoChecker(const custom::RoadInfo& message)
    : message(message), report("RoadView", "custom::RoadInfo")
{
}

bool RoadInfoChecker::IsMsgValid() const
{
    return IsLaneSpeedLimitValid() & IsLaneTypesValid() & IsFrontIntersectionTypeValid() & IsDistancesValid();
}

bool RoadInfoChecker::IsLaneSpeedLimitValid() const
{
    return report.CheckReal("laneSpeedLimit", message.laneSpeedLimit, 0, 300);
}

bool RoadInfoChecker::IsLaneTypesValid() const
{
    return report.CheckInteger("laneType", message.laneType, 0, 15) &
           report.CheckInteger("leftLaneType", message.leftLaneType, 0, 15) &
           report.CheckInteger("rightLaneType", message.rightLaneType, 0, 15);
}

bool RoadInfoChecker::IsFrontIntersectionTypeValid() const
{
    return report.CheckInteger("frontIntersectionType", message.frontIntersectionType, 0, 8);
}

bool RoadInfoChecker::IsDistancesValid() const
{
    return report.CheckReal("distanceToIntersection", message.distanceToIntersection, 0, 1000000) &
           report.CheckReal("roadResidueLength", message.roadResidueLength, 0, 50000000) &
           report.CheckReal("distanceToEnd", message.distanceToEnd, 0, 50000000);
}

} // namespace rviz_plugin

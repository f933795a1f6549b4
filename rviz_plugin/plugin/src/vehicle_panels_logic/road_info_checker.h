#ifndef RVIZ_PLUGIN_ROAD_INFO_CHECKER_H
#define RVIZ_PLUGIN_ROAD_INFO_CHECKER_H

#include "range_report.h"

#include <custom/RoadInfo.h>

namespace rviz_plugin {

// Checks one custom::RoadInfo as a whole.
class RoadInfoChecker {
public:
    explicit RoadInfoChecker(const custom::RoadInfo& message);

    // The fields in the order of the table: a message with any field out of range is dropped, and
    // every failing field is logged.
    bool IsMsgValid() const;
    bool IsLaneSpeedLimitValid() const;
    bool IsLaneTypesValid() const;
    bool IsFrontIntersectionTypeValid() const;
    bool IsDistancesValid() const;

private:
    const custom::RoadInfo& message;
    RangeReport report;
};

} // namespace rviz_plugin

#endif

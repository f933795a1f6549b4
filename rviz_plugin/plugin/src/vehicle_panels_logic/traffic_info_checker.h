#ifndef RVIZ_PLUGIN_TRAFFIC_INFO_CHECKER_H
#define RVIZ_PLUGIN_TRAFFIC_INFO_CHECKER_H

#include "range_report.h"

#include <custom/TrafficInfo.h>

namespace rviz_plugin {

// Checks one custom::TrafficInfo as a whole.
class TrafficInfoChecker {
public:
    explicit TrafficInfoChecker(const custom::TrafficInfo& message);

    // Runs all six checks in order and ands the results.
    bool IsMsgValid() const;
    bool IsTrafficLightStateValid() const;
    bool IsTrafficLightReservedTimeValid() const;
    bool IsTrafficLightDistanceValid() const;
    bool IsTrafficLightTypeValid() const;
    // 0 to 300; below zero only what is above -DBL_EPSILON passes.
    bool IsSpeedLimitValid() const;
    bool IsTrafficSignValid() const;

private:
    const custom::TrafficInfo& message;
    RangeReport report;
};

} // namespace rviz_plugin

#endif

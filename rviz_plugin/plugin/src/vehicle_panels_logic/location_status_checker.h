#ifndef RVIZ_PLUGIN_LOCATION_STATUS_CHECKER_H
#define RVIZ_PLUGIN_LOCATION_STATUS_CHECKER_H

#include "range_report.h"

#include <custom/LocationStatus.h>

namespace rviz_plugin {

// Checks one custom::LocationStatus as a whole.
class LocationStatusChecker {
public:
    explicit LocationStatusChecker(const custom::LocationStatus& message);

    bool IsMsgValid() const;
    bool IsSearchedSattelitesValid() const;
    bool IsLocationTypeValid() const;

private:
    const custom::LocationStatus& message;
    RangeReport report;
};

} // namespace rviz_plugin

#endif

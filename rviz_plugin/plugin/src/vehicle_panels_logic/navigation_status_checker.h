#ifndef RVIZ_PLUGIN_NAVIGATION_STATUS_CHECKER_H
#define RVIZ_PLUGIN_NAVIGATION_STATUS_CHECKER_H

#include "range_report.h"

#include <custom/NavigationStatus.h>

namespace rviz_plugin {

// Checks one custom::NavigationStatus as a whole.
class NavigationStatusChecker {
public:
    explicit NavigationStatusChecker(const custom::NavigationStatus& message);

    bool IsMsgValid() const;
    bool IsNavSceneTypeValid() const;
    bool IsNavStatusValid() const;

private:
    const custom::NavigationStatus& message;
    RangeReport report;
};

} // namespace rviz_plugin

#endif

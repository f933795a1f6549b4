#include "location_status_checker.h"

namespace rviz_plugin {

LocationStatusChecker::LocationStatusChecker(const custom::LocationStatus& message)
    : message(message), report("TrafficView", "custom::LocationStatus")
{
}

bool LocationStatusChecker::IsMsgValid() const
{
    return IsSearchedSattelitesValid() & IsLocationTypeValid();
}

bool LocationStatusChecker::IsSearchedSattelitesValid() const
{
    return report.CheckInteger("searchedSattelites", message.searchedSattelites, 0, 100);
}

bool LocationStatusChecker::IsLocationTypeValid() const
{
    return report.CheckInteger("locationType", message.locationType, 0, 6);
}

} // namespace rviz_plugin

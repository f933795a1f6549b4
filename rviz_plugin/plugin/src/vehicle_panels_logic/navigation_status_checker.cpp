#include "navigation_status_checker.h"

namespace rviz_plugin {

NavigationStatusChecker::NavigationStatusChecker(const custom::NavigationStatus& message)
    : message(message), report("SceneView", "custom::NavigationStatus")
{
}

bool NavigationStatusChecker::IsMsgValid() const
{
    return IsNavSceneTypeValid() & IsNavStatusValid();
}

bool NavigationStatusChecker::IsNavSceneTypeValid() const
{
    return report.CheckInteger("navSceneType", message.navSceneType, 0, 7);
}

bool NavigationStatusChecker::IsNavStatusValid() const
{
    return report.CheckInteger("navStatus", message.navStatus, 0, 15);
}

} // namespace rviz_plugin

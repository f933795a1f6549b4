#include "clear_point.h"

#include "foundation/rviz_helpers.h"

#include <rviz/display_context.h>

namespace rviz_plugin {

ClearPoint::ClearPoint() : BasePoint(Setup{"", "ClearPoints", 'x'}) {}

void ClearPoint::activate()
{
    publisher.publish(geometry_msgs::PointStamped());
    ReturnToDefaultToolLater(this, context_->getToolManager());
}

} // namespace rviz_plugin

#include "clear_point.h"

namespace rviz_plugin {

ClearPoint::ClearPoint() : BasePoint(Setup{"", "ClearPoints", 'x'}) {}

void ClearPoint::activate()
{
    publisher.publish(geometry_msgs::PointStamped());
    FinishAtOnce();
}

} // namespace rviz_plugin

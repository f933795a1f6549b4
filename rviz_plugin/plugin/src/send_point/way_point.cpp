#include "way_point.h"

namespace rviz_plugin {

WayPoint::WayPoint() : BasePoint(Setup{"package://rviz_plugin/media/WayFlag.dae", "TopicByWayPoint", 'w'}) {}

void WayPoint::MakeFlag(const Ogre::Vector3& position, Ogre::Camera* camera)
{
    PublishPoint(position);
    BasePoint::MakeFlag(position, camera);
}

} // namespace rviz_plugin

#include "end_point.h"

namespace rviz_plugin {

EndPoint::EndPoint() : BasePoint(Setup{"package://rviz_plugin/media/EndFlag.dae", "TopicEndPoint", 'e'}) {}

void EndPoint::MakeFlag(const Ogre::Vector3& position, Ogre::Camera* camera)
{
    PublishPoint(position);
    BasePoint::MakeFlag(position, camera);
}

} // namespace rviz_plugin

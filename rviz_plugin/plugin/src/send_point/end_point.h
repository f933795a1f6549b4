#ifndef RVIZ_PLUGIN_END_POINT_H
#define RVIZ_PLUGIN_END_POINT_H

#include "base_point.h"

namespace rviz_plugin {

// Sends the clicked point on "TopicEndPoint" (map offset added) and leaves a flag there.
class EndPoint : public BasePoint {
    Q_OBJECT
public:
    EndPoint();
    void MakeFlag(const Ogre::Vector3& position, Ogre::Camera* camera) override;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_WAY_POINT_H
#define RVIZ_PLUGIN_WAY_POINT_H

#include "base_point.h"

namespace rviz_plugin {

// Sends the clicked point on "TopicByWayPoint" (map offset added) and leaves a flag there.
class WayPoint : public BasePoint {
    Q_OBJECT
public:
    WayPoint();
    void MakeFlag(const Ogre::Vector3& position, Ogre::Camera* camera) override;

protected:
    std::string ContainerErrorText() const override
    {
        return "WayPoint: failed to get property from getPropertyContainer.";
    }
};

} // namespace rviz_plugin

#endif

#include "refresh_point.h"

#include "foundation/logger.h"
#include "map_offset/map_offset.h"

#include <OgreCamera.h>
#include <rviz/display_context.h>
#include <rviz/properties/property.h>
#include <rviz/view_controller.h>
#include <rviz/view_manager.h>

#include "foundation/rviz_helpers.h"

namespace rviz_plugin {

RefreshPoint::RefreshPoint() : BasePoint(Setup{"", "TopicRefreshMap", 'r'}) {}

void RefreshPoint::activate()
{
    geometry_msgs::PointStamped point = FocalPoint();
    Orsa::ApplyMapOffset(point);
    publisher.publish(point);
    ReturnToDefaultToolLater(this, context_->getToolManager());
}

geometry_msgs::PointStamped RefreshPoint::FocalPoint() const
{
    geometry_msgs::PointStamped point;
    rviz::ViewController* view = context_->getViewManager()->getCurrent();
    if (view == nullptr) {
        Orsa::Logger::GetInstance().WriteLog(
            "SendPoint", Orsa::LogLevel::Error,
            "RefreshPoint: sourceView is nullptr, the value of published point is (0, 0, 0).");
        return point;
    }
    Ogre::Camera* camera = view->getCamera();
    if (camera == nullptr) {
        Orsa::Logger::GetInstance().WriteLog(
            "SendPoint", Orsa::LogLevel::Error,
            "RefreshPoint: sourceCamera is nullptr, the value of published point is (0, 0, 0).");
        return point;
    }
    double distance = camera->getDerivedPosition().length();
    rviz::Property* orbitDistance = view->subProp("Distance");
    if (view->getClassId() == "rviz/Orbit" && orbitDistance != nullptr) {
        distance = orbitDistance->getValue().toDouble();
    }
    const Ogre::Vector3 focus =
        camera->getDerivedPosition() + camera->getDerivedOrientation() * Ogre::Vector3(0, 0, -1) * static_cast<float>(distance);
    point.point.x = focus.x;
    point.point.y = focus.y;
    point.point.z = focus.z;
    return point;
}

} // namespace rviz_plugin

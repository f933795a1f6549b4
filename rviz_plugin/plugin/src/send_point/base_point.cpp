#include "base_point.h"

#include "foundation/logger.h"
#include "map_offset/map_offset.h"

#include <OgreCamera.h>
#include <OgreSceneNode.h>
#include <OgreViewport.h>
#include <rviz/display_context.h>
#include <rviz/properties/vector_property.h>
#include <rviz/view_controller.h>
#include <rviz/view_manager.h>
#include <rviz/viewport_mouse_event.h>

namespace rviz_plugin {

BasePoint::BasePoint(Setup toolSetup) : setup(std::move(toolSetup))
{
    shortcut_key_ = setup.shortcut;
}

BasePoint::~BasePoint()
{
    if (scene_manager_ != nullptr && listener != nullptr) {
        scene_manager_->removeListener(listener.get());
    }
    coordinateNodes.clear();
    DestroyNode(scene_manager_, movingFlagNode);
}

void BasePoint::onInitialize()
{
    if (!setup.mesh.empty()) {
        movingFlagNode = CreateNode(scene_manager_, setup.mesh, Log());
    }
    if (!setup.topic.empty()) {
        publisher = nodeHandle.advertise<geometry_msgs::PointStamped>(setup.topic, 10);
    }
    clearSubscriber = nodeHandle.subscribe("ClearPoints", 1, &BasePoint::GetMsgBack, this);
    listener = std::make_unique<BasePointListener>(*this);
    if (scene_manager_ != nullptr) {
        scene_manager_->addListener(listener.get());
    }
}

void BasePoint::activate()
{
    if (movingFlagNode != nullptr) {
        movingFlagNode->setVisible(true);
    }
    if (getPropertyContainer() == nullptr) {
        Orsa::Logger::GetInstance().WriteLog("SendPoint", Orsa::LogLevel::Error, ContainerErrorText());
        return;
    }
    pointProperty = new rviz::VectorProperty("Point", Ogre::Vector3::ZERO, "", getPropertyContainer());
    pointProperty->setReadOnly(true);
}

void BasePoint::deactivate()
{
    if (movingFlagNode != nullptr) {
        movingFlagNode->setVisible(false);
    }
    delete pointProperty;
    pointProperty = nullptr;
}

int BasePoint::processMouseEvent(rviz::ViewportMouseEvent& event)
{
    if (movingFlagNode == nullptr) {
        Log().Error("movingFlagNode is nullptr");
        return Finished;
    }
    if (event.viewport == nullptr) {
        Log().Error("viewport is nullptr");
        return Finished;
    }
    Ogre::Camera* camera = event.viewport->getCamera();
    if (camera == nullptr) {
        Log().Error("camera is nullptr");
        return Finished;
    }
    Ogre::Vector3 hit;
    if (!HitGround(event.viewport, event.x, event.y, hit)) {
        movingFlagNode->setVisible(false);
        return event.rightUp() ? Finished : Render;
    }
    movingFlagNode->setVisible(true);
    movingFlagNode->setPosition(hit);
    ScaleAndRotateNode(context_, movingFlagNode, camera, Log());
    if (pointProperty != nullptr) {
        pointProperty->setVector(hit);
    }
    if (event.leftUp()) {
        MakeFlag(hit, camera);
        return Render | Finished;
    }
    return event.rightUp() ? Render | Finished : Render;
}

void BasePoint::MakeFlag(const Ogre::Vector3& position, Ogre::Camera* camera)
{
    if (scene_manager_ == nullptr) {
        Log().Error("scene_manager is nullptr.");
        return;
    }
    auto node = std::make_unique<CoordinateNode>(scene_manager_, setup.mesh, Log());
    if (!node->Init()) {
        return;
    }
    node->SetPosition(position);
    ScaleAndRotateNode(context_, node->GetFlagNode(), camera, Log());
    node->SetVisible(true);
    coordinateNodes.push_back(std::move(node));
}

void BasePoint::PublishPoint(const Ogre::Vector3& position)
{
    geometry_msgs::PointStamped point;
    point.point.x = position.x;
    point.point.y = position.y;
    point.point.z = position.z;
    Orsa::ApplyMapOffset(point);
    publisher.publish(point);
}

void BasePoint::GetMsgBack(const geometry_msgs::PointStamped& /*message*/)
{
    if (scene_manager_ == nullptr) {
        Log().Error("scene_manager_ is nullptr");
        return;
    }
    coordinateNodes.clear();
}

void BasePoint::BasePointListener::postUpdateSceneGraph(Ogre::SceneManager* /*source*/, Ogre::Camera* camera)
{
    // Only the main view's camera: the video windows share the scene with cameras of their own.
    rviz::ViewController* view =
        tool.context_ != nullptr ? tool.context_->getViewManager()->getCurrent() : nullptr;
    if (view == nullptr || camera != view->getCamera()) {
        return;
    }
    for (const auto& node : tool.coordinateNodes) {
        ScaleAndRotateNode(tool.context_, node->GetFlagNode(), camera, tool.Log());
    }
}

} // namespace rviz_plugin

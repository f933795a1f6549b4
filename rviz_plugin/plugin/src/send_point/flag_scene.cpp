#include "flag_scene.h"

#include "foundation/logger.h"
#include "route_planner_logic/flag_scale.h"

#include <OgreCamera.h>
#include <OgreEntity.h>
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>
#include <OgreViewport.h>
#include <rviz/display_context.h>
#include <rviz/geometry.h>
#include <rviz/mesh_loader.h>
#include <rviz/ogre_helpers/movable_text.h>
#include <rviz/properties/property.h>
#include <rviz/view_controller.h>
#include <rviz/view_manager.h>

#include <atomic>

namespace rviz_plugin {

namespace {
std::atomic<unsigned> nodeCounter{0};
} // namespace

void FlagLog::Error(const std::string& text) const
{
    Orsa::Logger::GetInstance().WriteLog(module, Orsa::LogLevel::Error, owner + ": " + text);
}

Ogre::SceneNode* CreateNode(Ogre::SceneManager* manager, const std::string& mesh, const FlagLog& log)
{
    if (manager == nullptr) {
        log.Error("scene_manager is nullptr.");
        return nullptr;
    }
    if (!rviz::loadMeshFromResource(mesh)) {
        log.Error("failed to load model resource '" + mesh + "'.");
        return nullptr;
    }
    Ogre::Entity* entity = manager->createEntity("RouteFlag" + std::to_string(nodeCounter++), mesh);
    if (entity == nullptr) {
        log.Error("failed to get entity from scene manager. ");
        return nullptr;
    }
    Ogre::SceneNode* root = manager->getRootSceneNode();
    if (root == nullptr) {
        log.Error("failed to get root scene node from scene manager. ");
        manager->destroyEntity(entity);
        return nullptr;
    }
    Ogre::SceneNode* node = root->createChildSceneNode();
    node->attachObject(entity);
    node->setVisible(false);
    return node;
}

Ogre::SceneNode* CreateTextNode(Ogre::SceneManager* manager, Ogre::SceneNode* parent, const std::string& caption,
                                const FlagLog& log)
{
    if (manager == nullptr || parent == nullptr) {
        log.Error("scene_manager is nullptr.");
        return nullptr;
    }
    auto* text = new rviz::MovableText(caption, "Liberation Sans", 1.0F);
    text->setTextAlignment(rviz::MovableText::H_CENTER, rviz::MovableText::V_ABOVE);
    Ogre::SceneNode* node = parent->createChildSceneNode();
    node->attachObject(text);
    return node;
}

void SetNodeText(Ogre::SceneNode* node, const std::string& caption)
{
    if (node == nullptr || node->numAttachedObjects() == 0) {
        return;
    }
    if (auto* text = dynamic_cast<rviz::MovableText*>(node->getAttachedObject(0))) {
        text->setCaption(caption);
    }
}

void DestroyNode(Ogre::SceneManager* manager, Ogre::SceneNode*& node)
{
    if (manager == nullptr || node == nullptr) {
        return;
    }
    const Ogre::Node::ChildNodeMap children = node->getChildren();  // shrinks as children go
    for (Ogre::Node* child : children) {
        auto* childNode = static_cast<Ogre::SceneNode*>(child);
        DestroyNode(manager, childNode);
    }
    while (node->numAttachedObjects() > 0) {
        Ogre::MovableObject* object = node->detachObject(static_cast<unsigned short>(0));
        if (dynamic_cast<rviz::MovableText*>(object) != nullptr) {
            delete object;
        } else {
            manager->destroyMovableObject(object);
        }
    }
    manager->destroySceneNode(node);
    node = nullptr;
}

double GetScaleFactor(rviz::DisplayContext* context, Ogre::SceneNode* node, Ogre::Camera* camera, const FlagLog& log)
{
    if (context == nullptr || node == nullptr || camera == nullptr || camera->getViewport() == nullptr) {
        log.Error("camera is nullptr");
        return -1.0;
    }
    std::string viewClass;
    double worldPerPixel = 0.0;
    rviz::ViewController* view = context->getViewManager() != nullptr ? context->getViewManager()->getCurrent() : nullptr;
    if (view != nullptr) {
        viewClass = view->getClassId().toStdString();
        // Only the top-down view has a scale (pixels per metre); asking others for it logs an error.
        if (viewClass.find("TopDownOrtho") != std::string::npos) {
            const double pixelsPerMetre = view->subProp("Scale")->getValue().toDouble();
            worldPerPixel = pixelsPerMetre > 0.0 ? 1.0 / pixelsPerMetre : 0.0;
        }
    }
    const double distance = camera->getDerivedPosition().distance(node->_getDerivedPosition());
    const double factor = FlagScaleFactor(viewClass, camera->getViewport()->getActualWidth(), worldPerPixel, distance);
    if (factor < 0.0) {
        log.Error("invalid scale factor " + std::to_string(factor));
    }
    return factor;
}

void ScaleAndRotateNode(rviz::DisplayContext* context, Ogre::SceneNode* node, Ogre::Camera* camera,
                        const FlagLog& log)
{
    const double factor = GetScaleFactor(context, node, camera, log);
    if (factor < 0.0) {
        return;
    }
    node->setScale(Ogre::Vector3(static_cast<float>(factor)));
    const Ogre::Radian turn = camera->getDerivedOrientation().getRoll() - node->getOrientation().getRoll();
    node->roll(turn);
}

bool HitGround(Ogre::Viewport* viewport, int x, int y, Ogre::Vector3& hit)
{
    Ogre::Plane ground(Ogre::Vector3::UNIT_Z, 0.0F);
    return viewport != nullptr && rviz::getPointOnPlaneFromWindowXY(viewport, ground, x, y, hit);
}

} // namespace rviz_plugin

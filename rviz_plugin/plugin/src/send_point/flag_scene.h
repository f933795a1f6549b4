#ifndef RVIZ_PLUGIN_FLAG_SCENE_H
#define RVIZ_PLUGIN_FLAG_SCENE_H

#include <OgreVector3.h>

#include <string>

namespace Ogre {
class Camera;
class SceneManager;
class SceneNode;
class Viewport;
} // namespace Ogre

namespace rviz {
class DisplayContext;
}

namespace rviz_plugin {

// The flags of the route planner and the point tools in the 3D scene. Failures are logged under
// module with owner's name in front ("RouteNodeManager: ...", "BasePoint: ...").
struct FlagLog {
    std::string module;
    std::string owner;
    void Error(const std::string& text) const;
};

// A hidden child of the root node holding an entity of the mesh, or nullptr.
Ogre::SceneNode* CreateNode(Ogre::SceneManager* manager, const std::string& mesh, const FlagLog& log);
// A child of parent holding a "Liberation Sans" text of height 1.0, or nullptr.
Ogre::SceneNode* CreateTextNode(Ogre::SceneManager* manager, Ogre::SceneNode* parent, const std::string& caption,
                                const FlagLog& log);
// Sets the caption of a node made by CreateTextNode.
void SetNodeText(Ogre::SceneNode* node, const std::string& caption);
// Destroys the node with everything attached to it and its children.
void DestroyNode(Ogre::SceneManager* manager, Ogre::SceneNode*& node);
// The scale that keeps node's size on screen, -1 when there is none (logged).
double GetScaleFactor(rviz::DisplayContext* context, Ogre::SceneNode* node, Ogre::Camera* camera, const FlagLog& log);
// Scales node by GetScaleFactor and turns it about z to face the camera; a node without a valid
// factor is left as it is.
void ScaleAndRotateNode(rviz::DisplayContext* context, Ogre::SceneNode* node, Ogre::Camera* camera,
                        const FlagLog& log);
// Where the ray through the window point meets the ground plane z = 0.
bool HitGround(Ogre::Viewport* viewport, int x, int y, Ogre::Vector3& hit);

} // namespace rviz_plugin

#endif

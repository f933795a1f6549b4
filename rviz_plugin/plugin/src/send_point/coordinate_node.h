#ifndef RVIZ_PLUGIN_COORDINATE_NODE_H
#define RVIZ_PLUGIN_COORDINATE_NODE_H

#include "flag_scene.h"

#include <OgreVector3.h>

#include <string>

namespace rviz_plugin {

// A flag placed by a point tool, with its coordinate label above it. The flag stands at the view's
// local coordinates; the label shows the platform's (map offset added).
class CoordinateNode {
public:
    CoordinateNode(Ogre::SceneManager* manager, std::string mesh, FlagLog log);
    ~CoordinateNode();
    CoordinateNode(const CoordinateNode&) = delete;
    CoordinateNode& operator=(const CoordinateNode&) = delete;

    bool Init();
    void SetVisible(bool visible);
    void SetPosition(const Ogre::Vector3& position);
    void SetScale(Ogre::Vector3 scale);
    Ogre::SceneNode* GetFlagNode() const { return flagNode; }

private:
    Ogre::SceneManager* manager;
    std::string mesh;
    FlagLog log;
    Ogre::SceneNode* flagNode = nullptr;
    Ogre::SceneNode* textNode = nullptr;
    std::string text;
};

} // namespace rviz_plugin

#endif

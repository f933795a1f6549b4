#ifndef RVIZ_PLUGIN_OBJECT_H
#define RVIZ_PLUGIN_OBJECT_H

#include <custom/Object.h>
#include <std_msgs/Header.h>

#include <memory>

namespace Ogre {
class SceneNode;
}
namespace rviz {
class ArrowMarker;
class DisplayContext;
class LineListMarker;
class ShapeMarker;
} // namespace rviz

namespace rviz_plugin {

class MsgChecker;
class TextMarker;
struct ObjectArraySettings;

// One object of the array in the 3D view: a cuboid, a footprint polygon, a velocity arrow and a text,
// each in a scene node of its own under the object's node. Made once and reused for later messages.
class Object {
public:
    Object(const ObjectArraySettings* settings, MsgChecker* checker);
    virtual ~Object();

    virtual void Init(rviz::DisplayContext* context, Ogre::SceneNode* sceneNode);
    virtual void Render(const custom::Object& object, unsigned int index, const std_msgs::Header& header);
    virtual void Hide();

protected:
    virtual void RenderCube(const custom::Object& object, const std_msgs::Header& header);
    virtual void RenderPolygon(const custom::Object& object, const std_msgs::Header& header);
    virtual void RenderText(const custom::Object& object, const std_msgs::Header& header);
    virtual void RenderVelocity(const custom::Object& object, const std_msgs::Header& header);

private:
    const ObjectArraySettings* settings;
    MsgChecker* checker;
    Ogre::SceneNode* parentSceneNode = nullptr;
    Ogre::SceneNode* cubeNode = nullptr;
    Ogre::SceneNode* polygonNode = nullptr;
    Ogre::SceneNode* velocityNode = nullptr;
    Ogre::SceneNode* infoNode = nullptr;
    std::unique_ptr<rviz::ShapeMarker> cubeMarker;
    std::unique_ptr<rviz::LineListMarker> polygonMarker;
    std::unique_ptr<rviz::ArrowMarker> velocityMarker;
    std::unique_ptr<TextMarker> infoMarker;
};

} // namespace rviz_plugin

#endif

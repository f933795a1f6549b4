#include "coordinate_node.h"

#include "map_offset/map_offset.h"

#include <OgreSceneNode.h>

namespace rviz_plugin {

namespace {
// The label's height above the flag's foot, in the mesh's units (the flag is 3 high).
constexpr float labelHeight = 3.2F;
} // namespace

CoordinateNode::CoordinateNode(Ogre::SceneManager* sceneManager, std::string meshPath, FlagLog flagLog)
    : manager(sceneManager), mesh(std::move(meshPath)), log(std::move(flagLog))
{
}

CoordinateNode::~CoordinateNode()
{
    DestroyNode(manager, flagNode);
}

bool CoordinateNode::Init()
{
    flagNode = CreateNode(manager, mesh, log);
    return flagNode != nullptr;
}

void CoordinateNode::SetVisible(bool visible)
{
    if (flagNode != nullptr) {
        flagNode->setVisible(visible);
    }
}

void CoordinateNode::SetPosition(const Ogre::Vector3& position)
{
    if (flagNode == nullptr) {
        return;
    }
    flagNode->setPosition(position);
    // Without an offset the label shows the plain coordinates.
    text = Orsa::CoordinatesText(position.x, position.y, position.z);
    Orsa::ApplyMapOffset(position, text);
    // The text is made with its first caption: a text made blank keeps an empty bounding box and is
    // never drawn.
    if (textNode == nullptr) {
        textNode = CreateTextNode(manager, flagNode, text, log);
        if (textNode != nullptr) {
            textNode->setPosition(0.0F, 0.0F, labelHeight);
        }
    } else {
        SetNodeText(textNode, text);
    }
}

void CoordinateNode::SetScale(Ogre::Vector3 scale)
{
    if (flagNode != nullptr) {
        flagNode->setScale(scale);
    }
}

} // namespace rviz_plugin

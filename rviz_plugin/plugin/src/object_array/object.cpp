#include "object.h"

#include "scene_3d/text_marker.h"
#include "scene_3d_logic/msg_checker.h"
#include "scene_3d_logic/object_markers.h"

#include "foundation/logger_stream.h"

#ifndef Q_MOC_RUN
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>
#include <rviz/default_plugin/markers/arrow_marker.h>
#include <rviz/default_plugin/markers/line_list_marker.h>
#include <rviz/default_plugin/markers/shape_marker.h>
#include <rviz/display_context.h>
#endif

namespace rviz_plugin {

namespace {
const char* const logModule = "ObjectArray";

bool Ready(const Ogre::SceneNode* node, const void* marker, const char* nodeText, const char* markerText)
{
    if (node == nullptr) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << nodeText;
        return false;
    }
    if (marker == nullptr) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << markerText;
        return false;
    }
    return true;
}
} // namespace

Object::Object(const ObjectArraySettings* objectSettings, MsgChecker* msgChecker)
    : settings(objectSettings), checker(msgChecker)
{
}

Object::~Object()
{
    // The markers go before the nodes they live under.
    cubeMarker.reset();
    polygonMarker.reset();
    velocityMarker.reset();
    infoMarker.reset();
    if (parentSceneNode != nullptr) {
        parentSceneNode->removeAndDestroyAllChildren();
        parentSceneNode->getCreator()->destroySceneNode(parentSceneNode);
    }
}

void Object::Init(rviz::DisplayContext* context, Ogre::SceneNode* sceneNode)
{
    if (context == nullptr) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "context is nullptr in Object";
        return;
    }
    if (context->getSceneManager() == nullptr) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "sceneManager is nullptr in Object";
        return;
    }
    if (sceneNode == nullptr) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "sceneNode is nullptr in Object";
        return;
    }
    parentSceneNode = sceneNode;
    cubeNode = parentSceneNode->createChildSceneNode();
    polygonNode = parentSceneNode->createChildSceneNode();
    velocityNode = parentSceneNode->createChildSceneNode();
    infoNode = parentSceneNode->createChildSceneNode();
    cubeMarker = std::make_unique<rviz::ShapeMarker>(nullptr, context, cubeNode);
    polygonMarker = std::make_unique<rviz::LineListMarker>(nullptr, context, polygonNode);
    velocityMarker = std::make_unique<rviz::ArrowMarker>(nullptr, context, velocityNode);
    infoMarker = std::make_unique<TextMarker>(context, infoNode);
    infoMarker->SetTextAlignment(rviz::MovableText::H_LEFT, rviz::MovableText::V_ABOVE);
    Hide();
}

void Object::Render(const custom::Object& object, unsigned int index, const std_msgs::Header& header)
{
    if (settings == nullptr) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "ObjectArraySettings in Object is nullptr, can not render objects";
        return;
    }
    if (parentSceneNode == nullptr) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "parentSceneNode in Object is nullptr, can not render objects";
        return;
    }
    if (checker == nullptr) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "msgChecker in Object is nullptr, can not render objects";
        return;
    }
    parentSceneNode->setVisible(true);
    checker->CheckMsg(object, index);
    RenderCube(object, header);
    RenderPolygon(object, header);
    RenderText(object, header);
    RenderVelocity(object, header);
    checker->DeleteDisplayStatus();
}

void Object::Hide()
{
    if (parentSceneNode != nullptr) {
        parentSceneNode->setVisible(false);
    }
}

void Object::RenderCube(const custom::Object& object, const std_msgs::Header& header)
{
    if (!Ready(cubeNode, cubeMarker.get(), "cubeNode is not initialized, can not render",
               "cubeMarker is not initialized, can not render")) {
        return;
    }
    if (!checker->IsRenderItemValid(settings->cubeEnabled, checker->CubeNames())) {
        cubeNode->setVisible(false);
        return;
    }
    cubeMarker->setMessage(ObjectMarkers::Cube(object, header, *settings));
    cubeNode->setVisible(true);
}

void Object::RenderPolygon(const custom::Object& object, const std_msgs::Header& header)
{
    if (!Ready(polygonNode, polygonMarker.get(), "polygonNode is not initialized, can not render",
               "polygonMarker is not initialized, can not render")) {
        return;
    }
    if (!checker->IsRenderItemValid(settings->polygonEnabled, checker->PolygonNames())) {
        polygonNode->setVisible(false);
        return;
    }
    polygonMarker->setMessage(ObjectMarkers::Polygon(object, header, *settings));
    polygonNode->setVisible(true);
}

void Object::RenderVelocity(const custom::Object& object, const std_msgs::Header& header)
{
    if (!Ready(velocityNode, velocityMarker.get(), "velocityNode is not initialized, can not render",
               "velocityMarker is not initialized, can not render")) {
        return;
    }
    if (!checker->IsRenderItemValid(settings->velocityEnabled, checker->VelocityNames()) ||
        ObjectMarkers::Speed(object) < ObjectMarkers::minimumSpeed) {
        velocityNode->setVisible(false);
        return;
    }
    velocityMarker->setMessage(ObjectMarkers::Velocity(object, header, *settings));
    velocityNode->setVisible(true);
}

void Object::RenderText(const custom::Object& object, const std_msgs::Header& header)
{
    if (!Ready(infoNode, infoMarker.get(), "infoNode is not initialized, can not render",
               "infoMarker is not initialized, can not render")) {
        return;
    }
    if (!checker->IsObjectInfoValid()) {
        infoNode->setVisible(false);
        return;
    }
    const std::string text = ObjectMarkers::GetObjectInfoText(object, *settings);
    if (text.empty()) {
        infoNode->setVisible(false);
        return;
    }
    infoMarker->setMessage(ObjectMarkers::Text(object, header, *settings, text));
    infoNode->setVisible(true);
}

} // namespace rviz_plugin

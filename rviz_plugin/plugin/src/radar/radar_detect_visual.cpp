#include "radar_detect_visual.h"

#include "scene_3d/text_marker.h"
#include "scene_3d_logic/radar_markers.h"

#ifndef Q_MOC_RUN
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>
#include <rviz/default_plugin/markers/arrow_marker.h>
#include <rviz/default_plugin/markers/shape_marker.h>
#endif

namespace rviz_plugin {

RadarDetectVisual::RadarDetectVisual(const RadarDetectSettings& detectSettings)
    : RadarVisual(RadarDetectLimits()), settings(detectSettings)
{
}

RadarDetectVisual::~RadarDetectVisual()
{
    points = MarkerSet();
    infos = MarkerSet();
    velocities = MarkerSet();
}

void RadarDetectVisual::Init(rviz::DisplayContext* displayContext, Ogre::SceneNode* parentNode)
{
    context = displayContext;
    sceneNode = parentNode;
    pointNode = sceneNode->createChildSceneNode();
    infoNode = sceneNode->createChildSceneNode();
    velocityNode = sceneNode->createChildSceneNode();
    InitStatus();
    InitMarkers();
}

void RadarDetectVisual::InitMarkers()
{
    points = MarkerSet();
    infos = MarkerSet();
    velocities = MarkerSet();
    for (unsigned index = 0; index < RadarDetectSettings::maxPoints; ++index) {
        points.markers.push_back(std::make_unique<rviz::ShapeMarker>(nullptr, context, pointNode));
        auto text = std::make_unique<TextMarker>(context, infoNode);
        text->SetTextAlignment(rviz::MovableText::H_LEFT, rviz::MovableText::V_ABOVE);
        infos.markers.push_back(std::move(text));
        velocities.markers.push_back(std::make_unique<rviz::ArrowMarker>(nullptr, context, velocityNode));
    }
}

void RadarDetectVisual::SetMessage(const custom::RadarDetectArray::ConstPtr& message)
{
    CheckInvalidData(*message);
    RenderPoint(*message);
    RenderInfo(*message);
    RenderVelocity(*message);
}

void RadarDetectVisual::CheckInvalidData(const custom::RadarDetectArray& message)
{
    CheckItems(message.detectList, RadarDetectSettings::maxPoints, "RadarDetectArray",
               "The number of points in the received data exceeds %1, excessive points will not be displayed.",
               RadarDetectCheckedValues);
}

void RadarDetectVisual::RenderPoint(const custom::RadarDetectArray& message)
{
    visualization_msgs::Marker marker =
        RadarMarkers::Base(message.header, "point", settings.pointType, settings.pointColor);
    marker.scale.x = marker.scale.y = marker.scale.z = settings.pointScale;
    for (std::size_t place = 0; place < passedIndices.size(); ++place) {
        const custom::RadarDetect& point = message.detectList[passedIndices[place]];
        marker.id = static_cast<int>(place);
        marker.pose.position.x = point.x;
        marker.pose.position.y = point.y;
        marker.pose.position.z = 0;
        Send(*points.markers[place], marker);
    }
    ParkLeftovers(points, marker, passedIndices.size());
}

void RadarDetectVisual::RenderInfo(const custom::RadarDetectArray& message)
{
    RenderTexts(settings.infoShown, infoNode, message.header, message.detectList, RadarDetectSettings::InfoFieldNames(),
                settings.infoFields, settings.textColor, settings.textScale,
                [](const custom::RadarDetect& point) { return ScenePoint(point.x, point.y, 0); },
                RadarMarkers::DetectFieldTexts, infos);
}

void RadarDetectVisual::RenderVelocity(const custom::RadarDetectArray& message)
{
    RenderArrows(settings.velocityShown, velocityNode, message.header, message.detectList, "velocity",
                 settings.velocityArrow, [](const custom::RadarDetect& point) { return ScenePoint(point.x, point.y, 0); },
                 [](const custom::RadarDetect& point) { return std::make_pair(point.vx, point.vy); }, velocities);
}

} // namespace rviz_plugin

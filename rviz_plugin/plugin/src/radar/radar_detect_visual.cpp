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
        infos.markers.push_back(std::make_unique<TextMarker>(context, infoNode));
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
    if (!settings.infoShown) {
        infoNode->setVisible(false);
        return;
    }
    infoNode->setVisible(true);
    visualization_msgs::Marker marker = RadarMarkers::Base(message.header, "info",
                                                           visualization_msgs::Marker::TEXT_VIEW_FACING,
                                                           settings.textColor);
    marker.scale.x = marker.scale.y = marker.scale.z = settings.textScale;
    for (std::size_t place = 0; place < passedIndices.size(); ++place) {
        const custom::RadarDetect& point = message.detectList[passedIndices[place]];
        marker.id = static_cast<int>(place);
        marker.pose.position.x = point.x;
        marker.pose.position.y = point.y;
        marker.pose.position.z = 0;
        RadarMarkers::SetText(marker,
                              RadarMarkers::InfoText(RadarDetectSettings::InfoFieldNames(), settings.infoFields,
                                                     RadarMarkers::DetectFieldTexts(point)),
                              settings.textColor);
        auto* text = static_cast<TextMarker*>(infos.markers[place].get());
        Send(*text, marker);
        text->SetTextAlignment(rviz::MovableText::H_LEFT, rviz::MovableText::V_ABOVE);
    }
    ParkLeftovers(infos, marker, passedIndices.size());
}

void RadarDetectVisual::RenderVelocity(const custom::RadarDetectArray& message)
{
    if (!settings.velocityShown) {
        velocityNode->setVisible(false);
        return;
    }
    velocityNode->setVisible(true);
    visualization_msgs::Marker marker = RadarMarkers::Base(message.header, "velocity", visualization_msgs::Marker::ARROW,
                                                           settings.velocityArrow.color);
    for (std::size_t place = 0; place < passedIndices.size(); ++place) {
        const custom::RadarDetect& point = message.detectList[passedIndices[place]];
        marker.id = static_cast<int>(place);
        RadarMarkers::SetArrow(marker, settings.velocityArrow, point.x, point.y, 0, point.vx, point.vy);
        Send(*velocities.markers[place], marker);
    }
    ParkLeftovers(velocities, marker, passedIndices.size());
}

} // namespace rviz_plugin

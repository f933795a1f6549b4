#include "radar_track_visual.h"

#include "scene_3d/text_marker.h"
#include "scene_3d_logic/object_markers.h"
#include "scene_3d_logic/radar_markers.h"

#ifndef Q_MOC_RUN
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>
#include <rviz/default_plugin/markers/arrow_marker.h>
#include <rviz/default_plugin/markers/line_list_marker.h>
#endif

namespace rviz_plugin {

RadarTrackVisual::RadarTrackVisual(const RadarTrackSettings& trackSettings)
    : RadarVisual(RadarTrackLimits()), settings(trackSettings)
{
}

RadarTrackVisual::~RadarTrackVisual()
{
    polygons = MarkerSet();
    infos = MarkerSet();
    velocities = MarkerSet();
    accelerations = MarkerSet();
}

void RadarTrackVisual::Init(rviz::DisplayContext* displayContext, Ogre::SceneNode* parentNode)
{
    context = displayContext;
    sceneNode = parentNode;
    velocityNode = sceneNode->createChildSceneNode();
    accelerationNode = sceneNode->createChildSceneNode();
    polygonNode = sceneNode->createChildSceneNode();
    infoNode = sceneNode->createChildSceneNode();
    InitStatus();
    InitMarkers();
}

void RadarTrackVisual::InitMarkers()
{
    polygons = MarkerSet();
    infos = MarkerSet();
    velocities = MarkerSet();
    accelerations = MarkerSet();
    for (unsigned index = 0; index < RadarTrackSettings::maxTracks; ++index) {
        polygons.markers.push_back(std::make_unique<rviz::LineListMarker>(nullptr, context, polygonNode));
        auto text = std::make_unique<TextMarker>(context, infoNode);
        text->SetTextAlignment(rviz::MovableText::H_LEFT, rviz::MovableText::V_ABOVE);
        infos.markers.push_back(std::move(text));
        velocities.markers.push_back(std::make_unique<rviz::ArrowMarker>(nullptr, context, velocityNode));
        accelerations.markers.push_back(std::make_unique<rviz::ArrowMarker>(nullptr, context, accelerationNode));
    }
}

void RadarTrackVisual::SetMessage(const custom::RadarTrackArray::ConstPtr& message)
{
    CheckInvalidData(*message);
    RenderPolygon(*message);
    RenderInfo(*message);
    RenderVelocity(*message);
    RenderAcceleration(*message);
}

void RadarTrackVisual::CheckInvalidData(const custom::RadarTrackArray& message)
{
    CheckItems(message.trackList, RadarTrackSettings::maxTracks, "RadarTrackArray",
               "The number of obstacles in the received data exceeds %1, excessive obstacles will not be displayed.",
               RadarTrackCheckedValues);
}

void RadarTrackVisual::RenderPolygon(const custom::RadarTrackArray& message)
{
    polygonNode->setVisible(true);
    visualization_msgs::Marker marker = RadarMarkers::Base(message.header, "polygon",
                                                           visualization_msgs::Marker::LINE_LIST, settings.polygonColor);
    marker.scale.x = settings.edgeWidth;
    for (std::size_t place = 0; place < passedIndices.size(); ++place) {
        const custom::RadarTrack& track = message.trackList[passedIndices[place]];
        marker.id = static_cast<int>(place);
        marker.points = RadarMarkers::TrackBoxPoints(track);
        marker.pose.position.x = track.x;
        marker.pose.position.y = track.y;
        marker.pose.position.z = track.z;
        marker.pose.orientation = ObjectMarkers::YawQuaternion(track.orientation);
        Send(*polygons.markers[place], marker);
    }
    ParkLeftovers(polygons, marker, passedIndices.size());
}

void RadarTrackVisual::RenderInfo(const custom::RadarTrackArray& message)
{
    // The text stands at the track's height, whatever its z.
    RenderTexts(settings.infoShown, infoNode, message.header, message.trackList, RadarTrackSettings::InfoFieldNames(),
                settings.infoFields, settings.textColor, settings.textScale,
                [](const custom::RadarTrack& track) { return ScenePoint(track.x, track.y, track.height); },
                RadarMarkers::TrackFieldTexts, infos);
}

void RadarTrackVisual::RenderVelocity(const custom::RadarTrackArray& message)
{
    RenderArrows(settings.velocityShown, velocityNode, message.header, message.trackList, "velocity",
                 settings.velocityArrow, [](const custom::RadarTrack& track) { return ScenePoint(track.x, track.y, track.z); },
                 [](const custom::RadarTrack& track) { return std::make_pair(track.vx, track.vy); }, velocities);
}

void RadarTrackVisual::RenderAcceleration(const custom::RadarTrackArray& message)
{
    // Above the velocity arrow, so that the two stay apart.
    const double lift = static_cast<double>(settings.velocityArrow.scale[2]) + settings.accelerationArrow.scale[2];
    RenderArrows(settings.accelerationShown, accelerationNode, message.header, message.trackList, "acceleration",
                 settings.accelerationArrow,
                 [lift](const custom::RadarTrack& track) { return ScenePoint(track.x, track.y, track.z + lift); },
                 [](const custom::RadarTrack& track) { return std::make_pair(track.ax, track.ay); }, accelerations);
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_RADAR_MARKERS_H
#define RVIZ_PLUGIN_RADAR_MARKERS_H

#include "radar_settings.h"

#include <custom/RadarDetect.h>
#include <custom/RadarTrack.h>
#include <geometry_msgs/Point.h>
#include <std_msgs/Header.h>
#include <visualization_msgs/Marker.h>

#include <string>
#include <vector>

namespace rviz_plugin {

// The markers of the radar displays: points, boxes, arrows and texts, and the parking of markers a
// smaller message leaves over.
namespace RadarMarkers {

// A marker of type, namespace and colour with the header's stamp and frame.
visualization_msgs::Marker Base(const std_msgs::Header& header, const std::string& ns, int type, const QColor& color);
// Invisible and far away, so that a shrinking message leaves nothing behind.
void Park(visualization_msgs::Marker& marker);
constexpr double parkingPosition = 9999999;
// False when a position, orientation, scale or point of the marker is not a finite number: the checks
// let NaN through, the scene must not get it.
bool IsFinite(const visualization_msgs::Marker& marker);
// Arrows shorter than this are drawn invisible.
constexpr float minimumArrowSpeed = 0.1F;
// An arrow of speed (vx, vy) at position; alpha the arrow colour's from the minimum speed on.
void SetArrow(visualization_msgs::Marker& marker, const RadarArrowSettings& arrow, double x, double y, double z,
              float vx, float vy);
// A 3D text: left and above alignment are the display's; empty text is "-" at alpha 0.
void SetText(visualization_msgs::Marker& marker, const std::string& text, const QColor& color);

// "name: value" lines of the ticked fields.
std::string InfoText(const std::vector<QString>& names, const std::vector<bool>& ticked,
                     const std::vector<std::string>& values);
// Each field of a detection / track in the order of the info fields, printed as a stream prints it.
std::vector<std::string> DetectFieldTexts(const custom::RadarDetect& point);
std::vector<std::string> TrackFieldTexts(const custom::RadarTrack& track);

// The wire box of a track around its centre: bottom rectangle, top rectangle and the four uprights,
// two points an edge; a track of height 0 is only the rectangle at z 0.
std::vector<geometry_msgs::Point> TrackBoxPoints(const custom::RadarTrack& track);

} // namespace RadarMarkers

} // namespace rviz_plugin

#endif

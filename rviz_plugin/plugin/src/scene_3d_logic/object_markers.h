#ifndef RVIZ_PLUGIN_OBJECT_MARKERS_H
#define RVIZ_PLUGIN_OBJECT_MARKERS_H

#include "object_array_settings.h"

#include <custom/Object.h>
#include <std_msgs/Header.h>
#include <visualization_msgs/Marker.h>

#include <string>

namespace rviz_plugin {

// The markers that draw one object: what is drawn, where and in which colour. The display only
// hands them to rviz's marker classes.
namespace ObjectMarkers {

visualization_msgs::Marker Cube(const custom::Object& object, const std_msgs::Header& header,
                                const ObjectArraySettings& settings);
// A closed outline as a line list: A-B, B-C, ..., the last point back to A.
visualization_msgs::Marker Polygon(const custom::Object& object, const std_msgs::Header& header,
                                   const ObjectArraySettings& settings);
double Speed(const custom::Object& object);
// Below this speed no arrow is drawn.
constexpr double minimumSpeed = 0.01;
visualization_msgs::Marker Velocity(const custom::Object& object, const std_msgs::Header& header,
                                    const ObjectArraySettings& settings);
visualization_msgs::Marker Text(const custom::Object& object, const std_msgs::Header& header,
                                const ObjectArraySettings& settings, const std::string& text);

// The lines of the object's info text that the settings ask for, each ended by a newline.
std::string GetObjectInfoText(const custom::Object& object, const ObjectArraySettings& settings);
// "label: (x, y, z)" with each number trimmed of trailing zeros.
std::string GenerateText(const std::string& label, double x, double y, double z);

// A rotation about z by angle, as a message quaternion.
geometry_msgs::Quaternion YawQuaternion(double angle);
std_msgs::ColorRGBA ToColorRgba(const QColor& color);

} // namespace ObjectMarkers

} // namespace rviz_plugin

#endif

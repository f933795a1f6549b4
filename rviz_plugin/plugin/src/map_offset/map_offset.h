#ifndef ORSA_MAP_OFFSET_H
#define ORSA_MAP_OFFSET_H

#include <OgreVector3.h>
#include <geometry_msgs/PointStamped.h>
#include <visualization_msgs/Marker.h>

#include <string>

namespace Orsa {

// The platform's map offset, the global ROS parameters "offsetX" and "offsetY", read afresh on every
// call (nothing is cached, so a changed parameter takes effect at once). When either is missing the
// functions leave their argument untouched. Sums are computed in double; Ogre coordinates are float.
void ApplyMapOffset(Ogre::Vector3& point);
void SubMapOffset(Ogre::Vector3& point);
void ApplyMapOffset(geometry_msgs::PointStamped& point);
// "x = %f\ny = %f\nz = %f" of the point with the offset added (z takes none).
void ApplyMapOffset(const Ogre::Vector3& point, std::string& text);
void ApplyMapOffset(const Ogre::Vector3& point, visualization_msgs::Marker& marker);

// Both parameters, or false when either cannot be read.
bool ReadMapOffset(double& offsetX, double& offsetY);
// value + offset computed in double and stored as float, as the view keeps it.
float ShiftCoordinate(float value, double offset);
std::string CoordinatesText(double x, double y, double z);

} // namespace Orsa

#endif

#include "map_offset.h"

#include <ros/node_handle.h>

#include <cstdio>

namespace Orsa {

bool ReadMapOffset(double& offsetX, double& offsetY)
{
    offsetX = 0.0;
    offsetY = 0.0;
    ros::NodeHandle node;
    if (!node.getParam("offsetX", offsetX)) {
        return false;
    }
    return node.getParam("offsetY", offsetY);
}

float ShiftCoordinate(float value, double offset)
{
    return static_cast<float>(static_cast<double>(value) + offset);
}

std::string CoordinatesText(double x, double y, double z)
{
    char text[3 * 64 + 16];
    std::snprintf(text, sizeof(text), "x = %f\ny = %f\nz = %f", x, y, z);
    return text;
}

namespace {
void Shift(Ogre::Vector3& point, double sign)
{
    double offsetX = 0.0;
    double offsetY = 0.0;
    if (!ReadMapOffset(offsetX, offsetY)) {
        return;
    }
    point.x = ShiftCoordinate(point.x, sign * offsetX);
    point.y = ShiftCoordinate(point.y, sign * offsetY);
}
} // namespace

void ApplyMapOffset(Ogre::Vector3& point)
{
    Shift(point, 1.0);
}

void SubMapOffset(Ogre::Vector3& point)
{
    Shift(point, -1.0);
}

void ApplyMapOffset(geometry_msgs::PointStamped& point)
{
    double offsetX = 0.0;
    double offsetY = 0.0;
    if (!ReadMapOffset(offsetX, offsetY)) {
        return;
    }
    point.point.x += offsetX;
    point.point.y += offsetY;
}

void ApplyMapOffset(const Ogre::Vector3& point, std::string& text)
{
    double offsetX = 0.0;
    double offsetY = 0.0;
    if (!ReadMapOffset(offsetX, offsetY)) {
        return;
    }
    text = CoordinatesText(point.x + offsetX, point.y + offsetY, point.z);
}

void ApplyMapOffset(const Ogre::Vector3& point, visualization_msgs::Marker& marker)
{
    ApplyMapOffset(point, marker.text);
}

} // namespace Orsa

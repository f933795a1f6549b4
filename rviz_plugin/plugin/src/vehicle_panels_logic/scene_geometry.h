#ifndef RVIZ_PLUGIN_SCENE_GEOMETRY_H
#define RVIZ_PLUGIN_SCENE_GEOMETRY_H

#include <array>

namespace rviz_plugin {

// Pitch, yaw and roll in degrees, in that order, of the rotation of a quaternion. A quaternion whose
// squared norm is off 1 by more than 0.1 is normalised (with a ROS warning).
std::array<double, 3> Quaternion2Rpy(double x, double y, double z, double w);

// Cuts the absolute values of x and y to limit, keeping their signs.
void ConstrainDistance(int limit, double& x, double& y);

struct Point2 {
    double x = 0;
    double y = 0;
};

// Where the ego car stands for one quadrant of the key object's position, and where its arc starts.
struct QuadrantBase {
    double xOffset = 0;
    double yOffset = 0;
    double angle = 0;
};

// The drawing of the key object relative to the ego car, in the panel's design pixels. The
// quadrant's number is 1 to 4; icon sizes are those drawn (already scaled).
struct ObstacleLayout {
    int quadrant = 1;
    Point2 car;        // top-left of the car icon
    Point2 obstacle;   // top-left of the obstacle icon
    double px = 0;     // pixel distances, 8 a metre, at most 80
    double py = 0;
    double angle = 0;         // degrees, from the true distances: what the text shows
    double arcStart = 0;      // degrees
    double arcSweep = 0;      // degrees, signed: the angle of the distances as drawn
    Point2 xLabel;
    Point2 yLabel;
    bool showDistances = true;  // false at (0, 0)
};

struct IconSize {
    double width = 0;
    double height = 0;
};

// Lays the key object out from its lateral (x) and vertical (y) distance in metres. Quadrants are
// tried first to fourth and the first that holds wins, so a zero on an axis goes to the earlier one.
ObstacleLayout LayOutObstacle(double x, double y, const std::array<QuadrantBase, 4>& quadrants, IconSize car,
                              IconSize obstacle);

} // namespace rviz_plugin

#endif

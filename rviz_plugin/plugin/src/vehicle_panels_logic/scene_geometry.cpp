#include "scene_geometry.h"

#include <ros/console.h>

#include <algorithm>
#include <cmath>

namespace rviz_plugin {

namespace {

constexpr double degreesPerRadian = 57.29577951308232;
constexpr double normTolerance = 0.10000000149011612;
constexpr int metresShown = 10;    // distances beyond are drawn at the edge
constexpr double pixelsAtEdge = 80;

} // namespace

std::array<double, 3> Quaternion2Rpy(double x, double y, double z, double w)
{
    double norm = x * x + y * y + z * z + w * w;
    if (std::fabs(norm - 1.0) > normTolerance) {
        ROS_WARN("MSG to TF: Quaternion Not Properly Normalized");
        const double length = std::sqrt(norm);
        if (length > 0) {
            x /= length;
            y /= length;
            z /= length;
            w /= length;
        }
        norm = x * x + y * y + z * z + w * w;
    }
    const double s = norm > 0 ? 2.0 / norm : 0.0;
    const double xs = x * s, ys = y * s, zs = z * s;
    const double wx = w * xs, wy = w * ys, wz = w * zs;
    const double xx = x * xs, xy = x * ys, xz = x * zs;
    const double yy = y * ys, yz = y * zs, zz = z * zs;
    const double m00 = 1.0 - (yy + zz), m01 = xy - wz, m02 = xz + wy;
    const double m10 = xy + wz;
    const double m20 = xz - wy, m21 = yz + wx, m22 = 1.0 - (xx + yy);

    double pitch = 0;
    double yaw = 0;
    double roll = 0;
    if (std::fabs(m20) >= 1) {
        if (m20 < 0) {
            pitch = M_PI / 2.0;
            roll = std::atan2(m01, m02);
        } else {
            pitch = -M_PI / 2.0;
            roll = std::atan2(-m01, -m02);
        }
    } else {
        pitch = -std::asin(std::clamp(m20, -1.0, 1.0));
        const double c = std::cos(pitch);
        roll = std::atan2(m21 / c, m22 / c);
        yaw = std::atan2(m10 / c, m00 / c);
    }
    return {pitch * degreesPerRadian, yaw * degreesPerRadian, roll * degreesPerRadian};
}

void ConstrainDistance(int limit, double& x, double& y)
{
    x = std::copysign(std::min(std::fabs(x), static_cast<double>(limit)), x);
    y = std::copysign(std::min(std::fabs(y), static_cast<double>(limit)), y);
}

ObstacleLayout LayOutObstacle(double x, double y, const std::array<QuadrantBase, 4>& quadrants, IconSize car,
                              IconSize obstacle)
{
    ObstacleLayout layout;
    layout.angle = std::atan2(std::fabs(y), std::fabs(x)) * degreesPerRadian;
    double dx = x;
    double dy = y;
    ConstrainDistance(metresShown, dx, dy);
    layout.px = pixelsAtEdge * dx / metresShown;
    layout.py = pixelsAtEdge * dy / metresShown;

    if (x >= 0 && y >= 0) {
        layout.quadrant = 1;
    } else if (x <= 0 && y >= 0) {
        layout.quadrant = 2;
    } else if (x <= 0 && y <= 0) {
        layout.quadrant = 3;
    } else {
        layout.quadrant = 4;
    }
    const QuadrantBase& base = quadrants[layout.quadrant - 1];
    layout.arcStart = base.angle;
    const double sweep = std::atan2(std::fabs(dy), std::fabs(dx)) * degreesPerRadian;
    layout.arcSweep = (layout.quadrant == 2 || layout.quadrant == 4) ? -sweep : sweep;

    const double bx = base.xOffset;
    const double by = base.yOffset;
    layout.car = {bx, by};
    layout.obstacle = {bx + layout.px - 2, by - layout.py};
    const bool upper = layout.quadrant <= 2;
    const bool right = layout.quadrant == 1 || layout.quadrant == 4;
    const double labelY = upper ? by + car.height - 14 : by - car.height;
    const double labelX = right ? bx + layout.px + obstacle.width + car.width
                                : bx + layout.px + obstacle.width - car.width - 14;
    layout.xLabel = {bx + layout.px / 2 - car.width / 2 - 6, labelY};
    layout.yLabel = {labelX, by - layout.py / 2 - 6};
    layout.showDistances = !(x == 0 && y == 0);
    return layout;
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_FLAG_SCALE_H
#define RVIZ_PLUGIN_FLAG_SCALE_H

#include <string>

namespace rviz_plugin {

// The scale that keeps a flag's size on screen. In a view whose class name contains "TopDownOrtho":
// w = viewportWidth * worldPerPixel * 0.5; below 0.0001 the factor is -1 (invalid), above 100000 it is
// 0.00017, else 17 / w. Other views: distance from the camera / 70, -1 outside 0.0001 to 100000.
double FlagScaleFactor(const std::string& viewClassName, double viewportWidth, double worldPerPixel, double distance);

} // namespace rviz_plugin

#endif

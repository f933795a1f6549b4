#ifndef RVIZ_PLUGIN_ROUTE_POINT_TEXT_H
#define RVIZ_PLUGIN_ROUTE_POINT_TEXT_H

#include <array>
#include <string>

namespace rviz_plugin {

// A coordinate typed as "x,y,z": exactly two commas, else invalid. The parts are read as floats in
// order into point; reading stops at the first part that is not a finite number, and the result is
// whether the last read succeeded. Blanks around a number are allowed.
bool ParseRoutePoint(const std::string& text, std::array<float, 3>& point);
// "%f,%f,%f": the form in which a picked point is written and saved.
std::string FormatRoutePoint(double x, double y, double z);

} // namespace rviz_plugin

#endif

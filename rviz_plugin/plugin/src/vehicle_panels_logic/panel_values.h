#ifndef RVIZ_PLUGIN_PANEL_VALUES_H
#define RVIZ_PLUGIN_PANEL_VALUES_H

#include <string>

namespace rviz_plugin {

// Height in pixels of a bar: value clamped to [minValue, maxValue], times 87 / 100.
double ValueException(double value, double minValue, double maxValue);

// Above 10000 m "<km>km" with one decimal, otherwise "<m>m" with one decimal.
std::string ToStringWithUnits(double distance);

// Lower-cased, then the first character upper-cased: "PARK ROAD" -> "Park road".
std::string CapitalizeFirst(const std::string& text);

// Fixed notation with the given number of decimals ("%.*f"): -12.6 with none is "-13".
std::string FormatFixed(double value, int decimals);

// The icon resource named after a label: its words (line breaks are blanks) in camel case, then
// "Pic": "No U turn" -> ":/icons/noUTurnPic.svg", "Alert \n people" -> ":/icons/alertPeoplePic.svg".
std::string IconOfLabel(const std::string& label);

} // namespace rviz_plugin

#endif

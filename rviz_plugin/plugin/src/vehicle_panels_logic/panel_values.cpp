#include "panel_values.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <sstream>

namespace rviz_plugin {

double ValueException(double value, double minValue, double maxValue)
{
    return std::clamp(value, minValue, maxValue) * 87.0 / 100.0;
}

std::string ToStringWithUnits(double distance)
{
    constexpr double kilometreFrom = 10000;
    if (distance > kilometreFrom) {
        return FormatFixed(distance / 1000.0, 1) + "km";
    }
    return FormatFixed(distance, 1) + "m";
}

std::string CapitalizeFirst(const std::string& text)
{
    std::string result = text;
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (!result.empty()) {
        result[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(result[0])));
    }
    return result;
}

std::string FormatFixed(double value, int decimals)
{
    char text[512];
    std::snprintf(text, sizeof(text), "%.*f", decimals, value);
    return text;
}

std::string IconOfLabel(const std::string& label)
{
    std::istringstream words(label);
    std::string word;
    std::string name;
    while (words >> word) {
        word = CapitalizeFirst(word);
        if (name.empty()) {
            word[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(word[0])));
        }
        name += word;
    }
    return ":/icons/" + name + "Pic.svg";
}

} // namespace rviz_plugin

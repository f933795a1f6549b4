#include "route_point_text.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace rviz_plugin {

namespace {
bool ReadFloat(const std::string& part, float& value)
{
    const auto notBlank = [](unsigned char c) { return std::isspace(c) == 0; };
    const auto first = std::find_if(part.begin(), part.end(), notBlank);
    const auto last = std::find_if(part.rbegin(), part.rend(), notBlank).base();
    if (first >= last) {
        return false;
    }
    const std::string number(first, last);
    char* end = nullptr;
    errno = 0;
    const float read = std::strtof(number.c_str(), &end);
    if (end != number.c_str() + number.size() || errno == ERANGE || !std::isfinite(read)) {
        return false;
    }
    value = read;
    return true;
}
} // namespace

bool ParseRoutePoint(const std::string& text, std::array<float, 3>& point)
{
    if (std::count(text.begin(), text.end(), ',') != 2) {
        return false;
    }
    std::size_t start = 0;
    for (float& value : point) {
        const std::size_t comma = text.find(',', start);
        const std::string part = text.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
        if (!ReadFloat(part, value)) {
            return false;
        }
        start = comma + 1;
    }
    return true;
}

std::string FormatRoutePoint(double x, double y, double z)
{
    char text[3 * 64];
    std::snprintf(text, sizeof(text), "%f,%f,%f", x, y, z);
    return text;
}

} // namespace rviz_plugin

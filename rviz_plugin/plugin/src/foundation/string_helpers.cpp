#include "string_helpers.h"

#include <cstdio>

namespace rviz_plugin {

std::string ToStringAndTrimZero(double value)
{
    char buffer[512] = {};
    const int written = std::snprintf(buffer, sizeof(buffer), "%.2f", value);
    if (written <= 0 || static_cast<std::size_t>(written) >= sizeof(buffer)) {
        return std::string();
    }
    std::string text(buffer, static_cast<std::size_t>(written));
    const std::size_t point = text.find('.');
    if (point == std::string::npos || point + 2 >= text.size()) {
        return text;  // "nan", "inf"
    }
    if (text[point + 1] == '0' && text[point + 2] == '0') {
        text.erase(point);
    } else if (text[point + 2] == '0') {
        text.erase(point + 2);
    }
    return text;
}

std::string TrimStringBySize(const std::string& text, unsigned size)
{
    return size < text.size() ? text.substr(0, size) + "..." : text;
}

std::vector<std::string> SplitStringToVector(std::string text, int length)
{
    std::vector<std::string> pieces;
    if (length <= 0) {
        if (!text.empty()) {
            pieces.push_back(std::move(text));
        }
        return pieces;
    }
    const std::size_t step = static_cast<std::size_t>(length);
    for (std::size_t start = 0; start < text.size(); start += step) {
        pieces.push_back(text.substr(start, step));
    }
    return pieces;
}

} // namespace rviz_plugin

#include "string_helpers.h"

#include <cstdio>

namespace rviz_plugin {

std::string ToStringAndTrimZero(double value)
{
    return ToStringAndTrimZero(static_cast<long double>(value), 2);
}

std::string ToStringAndTrimZero(long double value, int decimals)
{
    char buffer[512] = {};
    const int written = std::snprintf(buffer, sizeof(buffer), "%.*Lf", decimals, value);
    if (written <= 0 || static_cast<std::size_t>(written) >= sizeof(buffer)) {
        return std::string();
    }
    std::string text(buffer, static_cast<std::size_t>(written));
    if (text.find('.') == std::string::npos) {
        return text;  // "nan", "inf", or no decimals asked for
    }
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
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

#ifndef RVIZ_PLUGIN_STRING_HELPERS_H
#define RVIZ_PLUGIN_STRING_HELPERS_H

#include <string>
#include <vector>

namespace rviz_plugin {

// Two decimals, trailing zeros of the fraction dropped: 1.50 -> "1.5", 1.00 -> "1", 1.05 -> "1.05".
std::string ToStringAndTrimZero(double value);
// The same with up to decimals decimals.
std::string ToStringAndTrimZero(long double value, int decimals);

// The first size characters followed by "..." when the text is longer than size.
std::string TrimStringBySize(const std::string& text, unsigned size);

// Consecutive pieces of length characters, the last one shorter if need be.
std::vector<std::string> SplitStringToVector(std::string text, int length);

} // namespace rviz_plugin

#endif

#ifndef ORSA_PATH_UTILS_H
#define ORSA_PATH_UTILS_H

#include <string>

namespace Orsa {

bool StartWith(const std::string& text, const std::string& prefix);
bool EndWith(const std::string& text, const std::string& suffix);

// First line of /proc/self/comm: the name the kernel keeps for this process.
std::string GetExecutableName();

// realpath() of the path, or an empty string when it cannot be resolved.
std::string GetRealPath(const std::string& path);

// Directory of the target of /proc/self/exe (without the trailing '/'), or empty.
std::string GetExecutablePath();

// Local date and time as "YYYY-MM-DD HH:MM:SS.mmm".
std::string GetDateTime();

} // namespace Orsa

#endif

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

// root and relative joined with exactly one "/", whether or not root ends in one.
std::string JoinPath(const std::string& root, const std::string& relative);

// The install root from the ROS parameter "orsaPath"; false when it is not set or empty.
bool GetOrsaPath(std::string& root);

// Local date and time as "YYYY-MM-DD HH:MM:SS.mmm".
std::string GetDateTime();

} // namespace Orsa

#endif

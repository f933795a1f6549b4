#include "path_utils.h"

#include <ros/init.h>
#include <ros/param.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sys/time.h>
#include <unistd.h>

namespace Orsa {

namespace {
constexpr std::size_t pathBufferSize = 4096;
}

bool StartWith(const std::string& text, const std::string& prefix)
{
    return text.size() >= prefix.size() && text.compare(0, prefix.size(), prefix) == 0;
}

bool EndWith(const std::string& text, const std::string& suffix)
{
    return text.size() >= suffix.size() &&
           text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

std::string GetExecutableName()
{
    std::ifstream comm("/proc/self/comm");
    std::string name;
    std::getline(comm, name);
    return name;
}

std::string GetRealPath(const std::string& path)
{
    static_assert(pathBufferSize >= PATH_MAX, "realpath needs PATH_MAX bytes");
    char buffer[pathBufferSize] = {};
    if (realpath(path.c_str(), buffer) == nullptr) {
        return std::string();
    }
    return std::string(buffer);
}

std::string GetExecutablePath()
{
    char buffer[pathBufferSize] = {};
    const ssize_t length = readlink("/proc/self/exe", buffer, pathBufferSize - 1);
    if (length <= 0) {
        return std::string();
    }
    const std::string target(buffer, static_cast<std::size_t>(length));
    const std::size_t slash = target.rfind('/');
    return slash == std::string::npos ? std::string() : target.substr(0, slash);
}

std::string GetDateTime()
{
    struct timeval now {};
    gettimeofday(&now, nullptr);
    const time_t seconds = now.tv_sec;
    struct tm local {};
    localtime_r(&seconds, &local);
    char text[32] = {};
    const std::size_t length = std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M:%S", &local);
    char milliseconds[8] = {};
    std::snprintf(milliseconds, sizeof(milliseconds), ".%03d", static_cast<int>(now.tv_usec / 1000) % 1000);
    return std::string(text, length) + milliseconds;
}

std::string JoinPath(const std::string& root, const std::string& relative)
{
    std::string head = root;
    while (!head.empty() && head.back() == '/') {
        head.pop_back();
    }
    std::size_t start = 0;
    while (start < relative.size() && relative[start] == '/') {
        ++start;
    }
    return head + "/" + relative.substr(start);
}

bool GetOrsaPath(std::string& root)
{
    if (!ros::isInitialized()) {
        return false;
    }
    return ros::param::get("orsaPath", root) && !root.empty();
}

} // namespace Orsa

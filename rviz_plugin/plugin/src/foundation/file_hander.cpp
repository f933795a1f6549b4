#include "file_hander.h"

#include "logger.h"
#include "path_utils.h"

#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace Orsa {

namespace {
const char* const logModule = "FileHandler";
constexpr std::size_t executablePathLimit = 254;

void LogError(const std::string& message)
{
    Logger::GetInstance().WriteLog(logModule, LogLevel::Error, message);
}
} // namespace

bool FileHander::IsFileExist(const std::string& path)
{
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

bool FileHander::IsFileReadable(const std::string& path)
{
    return access(path.c_str(), R_OK) == 0;
}

std::string FileHander::SplitDirectoryToGetFileName(std::string& path)
{
    const std::size_t separator = path.find_last_of("/\\");
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::string FileHander::RelativePathToAbsolutePath(const std::string& path)
{
    const std::string resolved = GetRealPath(path);
    if (resolved.empty()) {
        LogError("Failed to resolve the realpath from " + path);
        return path;
    }
    return resolved;
}

std::string FileHander::GetExecutablePath()
{
    char buffer[executablePathLimit + 1] = {};
    const ssize_t length = readlink("/proc/self/exe", buffer, executablePathLimit);
    // A path that fills the whole limit may have been cut.
    if (length <= 0 || static_cast<std::size_t>(length) >= executablePathLimit) {
        LogError("Failed to get executable path");
        return std::string();
    }
    const std::string target(buffer, static_cast<std::size_t>(length));
    return target.substr(0, target.rfind('/'));
}

std::string FileHander::ReadFile(const std::string& path)
{
    const std::string resolved = GetRealPath(path);
    if (resolved.empty()) {
        LogError("Failed to resolve the realpath from " + path);
        return std::string();
    }
    std::ifstream in(resolved, std::ios::binary);
    if (!in.is_open()) {
        LogError("Failed to read content from " + path);
        return std::string();
    }
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace Orsa

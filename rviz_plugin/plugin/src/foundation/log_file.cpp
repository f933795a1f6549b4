#include "log_file.h"

#include "log_console.h"
#include "path_utils.h"

#include <cstdio>
#include <limits>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

#include <ros/param.h>
#include <ros/init.h>

namespace Orsa {

namespace {
constexpr std::size_t linkBufferSize = 4096;
const char* const rvizProgramName = "rviz";
const char* const rvizModuleName = "rviz_plugin";
const char* const rootParameterName = "orsaPath";

void ToConsole(const std::string& text)
{
    LogConsole().WriteLog(text);
}
} // namespace

LogFile::LogFile(const LogFileLimits& limits)
    : maxLogFileCount(limits.maxLogFileCount),
      maxLogFileSize(limits.maxLogFileSize),
      maxLogContentSize(limits.maxLogContentSize),
      warningSink(ToConsole)
{
}

void LogFile::Init()
{
    const std::string programName = GetExecutableName();
    if (programName != rvizProgramName) {
        Init(GetExecutablePath() + "/../", programName);
        return;
    }
    std::string root;
    // Without ros::init a parameter lookup would abort the process; the root then stays unknown.
    if (ros::isInitialized()) {
        ros::param::get(rootParameterName, root);
    }
    Init(root, rvizModuleName);
}

void LogFile::Init(const std::string& root, const std::string& module)
{
    rootPath = root.empty() ? std::string() : GetRealPath(root);
    moduleName = module;
    if (rootPath.empty()) {
        ToConsole("orsaRootPath is empty, initialize LogFile failed");
        initialized = false;
        return;
    }
    logDirectory = rootPath + "/log/";
    linkFilePath = logDirectory + moduleName + ".log";
    initialized = true;
}

std::size_t LogFile::GetMaxLogContentSize() const
{
    return maxLogContentSize;
}

void LogFile::SetWarningSink(WarningSink sink)
{
    warningSink = sink ? std::move(sink) : WarningSink(ToConsole);
}

void LogFile::WriteLog(const std::string& line)
{
    if (!initialized) {
        ToConsole("LogFile is not initialized, will not write log to file.");
        return;
    }
    if (!CheckAndCreateDirectory(logDirectory)) {
        ToConsole("Create " + logDirectory + " failed, will not write log to file.");
        return;
    }
    if (!CheckLogLinkFile() && !RepairLogLinkFile()) {
        return;
    }
    const std::size_t currentSize = GetFileSize(linkFilePath);
    const std::size_t knownSize = currentSize == std::numeric_limits<std::size_t>::max() ? 0 : currentSize;
    if (knownSize + line.size() + 1 >= maxLogFileSize) {
        if (!RelinkLogFile()) {
            ToConsole("Relink log file failed. will not write log to file.");
            return;
        }
        truncateNextOpen = true;
    } else {
        truncateNextOpen = false;
    }
    if (!OpenLogFile()) {
        ToConsole("Open file failed, will not write log to file.");
        return;
    }
    WriteFile(line);
    CloseLogFile();
}

bool LogFile::WriteFile(const std::string& line)
{
    fileStream << line << '\n';
    fileStream.flush();
    return fileStream.good();
}

std::size_t LogFile::GetFileSize(const std::string& path) const
{
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) {
        return std::numeric_limits<std::size_t>::max();
    }
    return static_cast<std::size_t>(info.st_size);
}

bool LogFile::OpenLogFile()
{
    const std::ios_base::openmode mode =
        truncateNextOpen ? std::ios_base::out | std::ios_base::trunc : std::ios_base::out | std::ios_base::app;
    fileStream.open(linkFilePath, mode);
    if (!fileStream.is_open()) {
        ToConsole("Open log file fail: " + linkFilePath);
        return false;
    }
    if (chmod(linkFilePath.c_str(), S_IRUSR | S_IWUSR) != 0) {
        ToConsole("chmod " + linkFilePath + " file failed, will not write log.");
        fileStream.close();
        return false;
    }
    return true;
}

void LogFile::CloseLogFile()
{
    fileStream.close();
    fileStream.clear();
}

bool LogFile::CheckAndCreateDirectory(const std::string& directory) const
{
    if (access(directory.c_str(), W_OK) == 0) {
        return true;
    }
    return mkdir(directory.c_str(), S_IRWXU) == 0;
}

bool LogFile::IsLogFileNameValid(const std::string& name)
{
    const std::size_t slash = name.rfind('/');
    const std::string fileName = slash == std::string::npos ? name : name.substr(slash + 1);
    const std::size_t first = fileName.find('_');
    if (first == std::string::npos || fileName.substr(0, first) != storePrefix) {
        return false;
    }
    const std::size_t second = fileName.find('_', first + 1);
    if (second == std::string::npos || fileName.substr(second + 1) != moduleName + ".log") {
        return false;
    }
    const std::string indexText = fileName.substr(first + 1, second - first - 1);
    long index = 0;
    try {
        std::size_t used = 0;
        index = std::stol(indexText, &used);
        if (used != indexText.size()) {
            return false;
        }
    } catch (const std::invalid_argument&) {
        warningSink("\"std::invalid_argument\" error occurred when converting the string to an integer. "
                    "The integer will be set to 0.");
        storeFileIndex = 0;
        return false;
    } catch (const std::out_of_range&) {
        warningSink("\"std::out_of_range\" error occurred when converting the string to an integer. "
                    "The integer will be set to 0.");
        storeFileIndex = 0;
        return false;
    }
    // An index outside the ring would let the store grow without bound.
    if (index < 0 || index >= static_cast<long>(maxLogFileCount)) {
        return false;
    }
    storeFileIndex = static_cast<unsigned>(index);
    return true;
}

bool LogFile::CheckLogLinkFile()
{
    char buffer[linkBufferSize] = {};
    const ssize_t length = readlink(linkFilePath.c_str(), buffer, linkBufferSize - 1);
    if (length <= 0) {
        return false;
    }
    storeFilePath.assign(buffer, static_cast<std::size_t>(length));
    return access(storeFilePath.c_str(), F_OK) == 0 && IsLogFileNameValid(storeFilePath);
}

void LogFile::GenStoreLogFileName()
{
    storeFilePath = logDirectory + storePrefix + "_" + std::to_string(storeFileIndex) + "_" + moduleName + ".log";
}

bool LogFile::RelinkLogFile()
{
    storeFileIndex = 0;
    if (IsLogFileNameValid(storeFilePath)) {
        storeFileIndex = storeFileIndex < maxLogFileCount - 1 ? storeFileIndex + 1 : 0;
    }
    if (unlink(linkFilePath.c_str()) != 0) {
        return false;
    }
    GenStoreLogFileName();
    return symlink(storeFilePath.c_str(), linkFilePath.c_str()) == 0;
}

bool LogFile::RepairLogLinkFile()
{
    storeFileIndex = 0;
    GenStoreLogFileName();
    std::remove(storeFilePath.c_str());
    std::remove(linkFilePath.c_str());
    if (symlink(storeFilePath.c_str(), linkFilePath.c_str()) != 0) {
        ToConsole("Create log file link failed, file: " + storeFilePath + ", link: " + linkFilePath);
        return false;
    }
    return true;
}

} // namespace Orsa

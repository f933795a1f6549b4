#ifndef ORSA_LOG_FILE_H
#define ORSA_LOG_FILE_H

#include <cstddef>
#include <fstream>
#include <functional>
#include <string>

namespace Orsa {

// Sizes of the rotating log store. The defaults are the product's values; tests shrink them.
struct LogFileLimits {
    unsigned maxLogFileCount = 5;
    unsigned maxLogFileSize = 52428800;
    unsigned maxLogContentSize = 2048;
};

// Writes log lines to <root>/log/<module>.log, a symbolic link to one of the hidden store files
// <root>/log/.bak_<n>_<module>.log. When the current store file would grow past the size limit the
// link moves on to the next store file in the ring, which is truncated. Every failure is reported on
// standard output and drops the line; nothing throws.
class LogFile {
public:
    // Receives warnings raised while a line is written. It is called with the caller's lock held,
    // so it must not log through the logger again.
    using WarningSink = std::function<void(const std::string&)>;

    explicit LogFile(const LogFileLimits& limits = LogFileLimits());

    // Root and module from the running process: inside rviz the parameter "orsaPath" and
    // "rviz_plugin", elsewhere the parent of the executable's directory and the program name.
    void Init();
    void Init(const std::string& root, const std::string& module);

    void WriteLog(const std::string& line);
    std::size_t GetMaxLogContentSize() const;
    void SetWarningSink(WarningSink sink);

    const std::string& GetLinkFilePath() const { return linkFilePath; }

private:
    bool WriteFile(const std::string& line);
    std::size_t GetFileSize(const std::string& path) const;
    bool OpenLogFile();
    void CloseLogFile();
    bool CheckAndCreateDirectory(const std::string& directory) const;
    bool IsLogFileNameValid(const std::string& name);
    bool CheckLogLinkFile();
    void GenStoreLogFileName();
    bool RelinkLogFile();
    bool RepairLogLinkFile();

    std::string rootPath;
    std::string logDirectory;
    unsigned maxLogFileCount;
    unsigned maxLogFileSize;
    unsigned maxLogContentSize;
    std::string linkFilePath;
    std::string storeFilePath;
    unsigned storeFileIndex = 0;
    std::ofstream fileStream;
    std::string storePrefix = ".bak";
    std::string moduleName;
    bool initialized = false;
    bool truncateNextOpen = false;
    WarningSink warningSink;
};

} // namespace Orsa

#endif

#ifndef ORSA_FILE_HANDER_H
#define ORSA_FILE_HANDER_H

#include <string>

namespace Orsa {

// File and path helpers; failures are logged under "FileHandler".
class FileHander {
public:
    // stat succeeds and the entry is a regular file.
    static bool IsFileExist(const std::string& path);
    static bool IsFileReadable(const std::string& path);
    // The text behind the last '/' or '\\'.
    static std::string SplitDirectoryToGetFileName(std::string& path);
    // realpath of path; the input unchanged (and a log line) when it cannot be resolved.
    static std::string RelativePathToAbsolutePath(const std::string& path);
    // Directory of the running executable, or empty (and a log line).
    static std::string GetExecutablePath();
    // Whole content of the file; empty when it cannot be resolved or read.
    static std::string ReadFile(const std::string& path);
};

} // namespace Orsa

#endif

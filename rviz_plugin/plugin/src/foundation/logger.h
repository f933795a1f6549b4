#ifndef ORSA_LOGGER_H
#define ORSA_LOGGER_H

#include "log_console.h"
#include "log_file.h"
#include "log_level.h"

#include <exception>
#include <map>
#include <mutex>
#include <string>

namespace Orsa {

// The process-wide logger. Each line goes to standard output and to the rotating log store;
// nothing it does ever throws to or blocks its caller beyond its own leaf lock.
class Logger {
public:
    static Logger& GetInstance();

    void WriteLog(const std::string& module, LogLevel level, const std::string& message);
    std::string LogHeader(const std::string& levelText, const std::string& module) const;
    LogLevel GetLogLevelFromEnv() const;

    static const std::map<int, std::string> logIndexToStrMap;
    static const std::map<std::string, int> logStrToIndexMap;

    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

private:
    Logger();
    // Warnings met while the lock is held go straight to the console.
    void WriteLockedWarning(const std::string& module, const std::string& message) const;

    LogLevel level = LogLevel::Info;
    LogFile logFile;
    LogConsole logConsole;
    std::mutex mutex;
    std::string logLevelEnvName = "KORA_TOOL_LOG_LEVEL";
};

// Logs an exception that ended a worker's body: "An unexpected exception occurs during service
// processing. ..." with its text, or without it (what == nullptr) for an exception of unknown type.
void LogUnexpectedException(const std::string& module, const char* what);

// Runs body; an exception that escapes it is logged as above under module instead of going further.
template <typename Body>
void RunLoggingExceptions(const std::string& module, Body&& body)
{
    try {
        body();
    } catch (const std::exception& exception) {
        LogUnexpectedException(module, exception.what());
    } catch (...) {
        LogUnexpectedException(module, nullptr);
    }
}

// Cuts a line longer than maxSize to its first maxSize - 1 characters followed by "...".
std::string LimitLogLine(const std::string& line, std::size_t maxSize);

} // namespace Orsa

#endif

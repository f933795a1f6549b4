#include "logger.h"

#include "path_utils.h"

#include <cstdlib>

namespace Orsa {

const std::map<int, std::string> Logger::logIndexToStrMap = {
    {LogLevel::Verbose, "Verbose"}, {LogLevel::Debug, "Debug"}, {LogLevel::Info, "Info"},
    {LogLevel::Warn, "Warn"},       {LogLevel::Error, "Error"},
};

const std::map<std::string, int> Logger::logStrToIndexMap = {
    {"Verbose", LogLevel::Verbose}, {"Debug", LogLevel::Debug}, {"Info", LogLevel::Info},
    {"Warn", LogLevel::Warn},       {"Error", LogLevel::Error},
};

std::string LimitLogLine(const std::string& line, std::size_t maxSize)
{
    if (maxSize == 0 || line.size() <= maxSize) {
        return line;
    }
    return line.substr(0, maxSize - 1) + "...";
}

void LogUnexpectedException(const std::string& module, const char* what)
{
    const std::string sentence =
        "An unexpected exception occurs during service processing. Check whether the data is correct.";
    Logger::GetInstance().WriteLog(
        module, LogLevel::Error,
        what == nullptr ? sentence : sentence + " The exception information is as follows: " + what);
}

Logger& Logger::GetInstance()
{
    static Logger instance;
    return instance;
}

Logger::Logger()
{
    level = GetLogLevelFromEnv();
    logFile.SetWarningSink(
        [this](const std::string& message) { WriteLockedWarning("ORSA", message); });
    logFile.Init();
}

LogLevel Logger::GetLogLevelFromEnv() const
{
    const char* value = secure_getenv(logLevelEnvName.c_str());
    if (value == nullptr) {
        return LogLevel::Info;
    }
    const auto found = logStrToIndexMap.find(value);
    return found == logStrToIndexMap.end() ? LogLevel::Info : static_cast<LogLevel>(found->second);
}

std::string Logger::LogHeader(const std::string& levelText, const std::string& module) const
{
    return GetDateTime() + " [" + levelText + "][" + module + "] ";
}

void Logger::WriteLog(const std::string& module, LogLevel lineLevel, const std::string& message)
{
    if (level > lineLevel) {
        return;
    }
    const auto levelText = logIndexToStrMap.find(lineLevel);
    if (levelText == logIndexToStrMap.end()) {
        return;
    }
    const std::string line =
        LimitLogLine(LogHeader(levelText->second, module) + message, logFile.GetMaxLogContentSize());
    std::lock_guard<std::mutex> lock(mutex);
    logConsole.WriteLog(line);
    logFile.WriteLog(line);
}

void Logger::WriteLockedWarning(const std::string& module, const std::string& message) const
{
    if (level > LogLevel::Warn) {
        return;
    }
    logConsole.WriteLog(LimitLogLine(LogHeader("Warn", module) + message, logFile.GetMaxLogContentSize()));
}

} // namespace Orsa

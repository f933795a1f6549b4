#include "logger_stream.h"

#include "logger.h"

namespace Orsa {

LoggerStream::LoggerStream(const std::string& module, const LogLevel& level) : module(module), level(level) {}

LoggerStream::~LoggerStream()
{
    Logger::GetInstance().WriteLog(module, level, str());
}

} // namespace Orsa

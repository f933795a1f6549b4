#ifndef ORSA_LOGGER_STREAM_H
#define ORSA_LOGGER_STREAM_H

#include "log_level.h"

#include <sstream>
#include <string>

namespace Orsa {

// Collects a message with stream syntax and writes it as one log line when it goes out of scope:
//   Orsa::LoggerStream("KoraVision", Orsa::LogLevel::Info) << "items: " << count;
class LoggerStream : public std::stringstream {
public:
    LoggerStream(const std::string& module, const LogLevel& level);
    ~LoggerStream() override;

    LoggerStream(const LoggerStream&) = delete;
    LoggerStream& operator=(const LoggerStream&) = delete;

private:
    std::string module;
    LogLevel level;
};

} // namespace Orsa

#endif

#ifndef ORSA_LOG_CONSOLE_H
#define ORSA_LOG_CONSOLE_H

#include <string>

namespace Orsa {

class LogConsole {
public:
    // Writes the line and a newline to standard output and flushes.
    void WriteLog(const std::string& line) const;
};

} // namespace Orsa

#endif

#include "log_console.h"

#include <iostream>

namespace Orsa {

void LogConsole::WriteLog(const std::string& line) const
{
    std::cout << line << std::endl;
}

} // namespace Orsa

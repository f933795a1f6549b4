#ifndef ORSA_LOG_LEVEL_H
#define ORSA_LOG_LEVEL_H

namespace Orsa {

enum LogLevel : int {
    Verbose = 0,
    Debug = 1,
    Info = 2,
    Warn = 3,
    Error = 4,
};

} // namespace Orsa

#endif

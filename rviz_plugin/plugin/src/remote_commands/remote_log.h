#ifndef RVIZ_PLUGIN_REMOTE_LOG_H
#define RVIZ_PLUGIN_REMOTE_LOG_H

#include "foundation/logger.h"

#include <string>

namespace rviz_plugin {

// Everything of the remote commands logs under one tag.
inline void RemoteLog(Orsa::LogLevel level, const std::string& text)
{
    Orsa::Logger::GetInstance().WriteLog("KORA Remote Commands", level, text);
}

inline void RemoteError(const std::string& text)
{
    RemoteLog(Orsa::LogLevel::Error, text);
}

} // namespace rviz_plugin

#endif

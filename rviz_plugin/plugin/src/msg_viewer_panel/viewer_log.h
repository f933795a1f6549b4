#ifndef RVIZ_PLUGIN_VIEWER_LOG_H
#define RVIZ_PLUGIN_VIEWER_LOG_H

#include "foundation/log_level.h"

#include <string>

namespace rviz_plugin {

// A line of the message viewer's log, under its tag "MSG Viewer".
void ViewerLog(const std::string& message, Orsa::LogLevel level = Orsa::LogLevel::Error);

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_PLOT_LOG_H
#define RVIZ_PLUGIN_PLOT_LOG_H

#include "foundation/log_level.h"

#include <string>

namespace rviz_plugin {

// The plot's tag in the log.
inline const char* const plotLogTag = "Plot";

// A line of the plot's log.
void PlotLog(const std::string& message, Orsa::LogLevel level = Orsa::LogLevel::Error);

} // namespace rviz_plugin

#endif

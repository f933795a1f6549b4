#include "plot_log.h"

#include "foundation/logger.h"

namespace rviz_plugin {

void PlotLog(const std::string& message, Orsa::LogLevel level)
{
    Orsa::Logger::GetInstance().WriteLog(plotLogTag, level, message);
}

} // namespace rviz_plugin

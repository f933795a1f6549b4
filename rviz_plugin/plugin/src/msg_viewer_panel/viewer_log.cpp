#include "viewer_log.h"

#include "foundation/logger.h"

namespace rviz_plugin {

void ViewerLog(const std::string& message, Orsa::LogLevel level)
{
    Orsa::Logger::GetInstance().WriteLog("MSG Viewer", level, message);
}

} // namespace rviz_plugin

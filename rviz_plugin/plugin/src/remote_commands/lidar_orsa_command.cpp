#include "lidar_orsa_command.h"

namespace rviz_plugin {

LidarOrsaCommand::LidarOrsaCommand()
{
    SetName("launch lidar_orsa");
    SetTemplate("/opt/platform/kora_platform/script/lidar_orsa_start.sh");
    SetEditableCommand("");
    SetButtonFlag(HasExecute | HasView);
    SetCommandDescription("This command is used to start the lidar_orsa forwarding application to forward point cloud data to the Orsa.");
}

} // namespace rviz_plugin

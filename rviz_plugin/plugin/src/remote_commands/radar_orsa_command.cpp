#include "radar_orsa_command.h"

namespace rviz_plugin {

RadarOrsaCommand::RadarOrsaCommand()
{
    SetName("launch radar_orsa");
    SetTemplate("/opt/platform/kora_platform/script/radar_orsa_start.sh");
    SetEditableCommand("");
    SetButtonFlag(HasExecute | HasView);
    SetCommandDescription("This command is used to start the radar_orsa forwarding application to forward the radar tracking data and detection data to the Orsa.");
}

} // namespace rviz_plugin

#include "camera_orsa_command.h"

namespace rviz_plugin {

CameraOrsaCommand::CameraOrsaCommand()
{
    SetName("launch camera_orsa");
    SetTemplate("/opt/platform/kora_platform/script/camera_orsa_start.sh {}");
    SetEditableCommand("71 72 73 74 75 76 77 78 79 80 81 82 83 84");
    SetButtonFlag(HasExecute | HasView | HasEdit);
    SetCommandDescription("This command is used to start the camera_orsa forwarding application to forward H.265 data streams to the Orsa.");
}

} // namespace rviz_plugin

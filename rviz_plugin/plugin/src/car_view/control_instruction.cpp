#include "control_instruction.h"

#include "control_status_panel.h"

namespace rviz_plugin {

ControlInstruction::ControlInstruction(QWidget* parent)
    : CarViewPanel("TopicVehicleControl", new ControlStatusPanel, parent)
{
}

} // namespace rviz_plugin

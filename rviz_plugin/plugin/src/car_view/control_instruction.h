#ifndef RVIZ_PLUGIN_CONTROL_INSTRUCTION_H
#define RVIZ_PLUGIN_CONTROL_INSTRUCTION_H

#include "car_view_panel.h"

namespace rviz_plugin {

// What the vehicle is told to do, from "TopicVehicleControl".
class ControlInstruction : public CarViewPanel {
    Q_OBJECT
public:
    explicit ControlInstruction(QWidget* parent = nullptr);
};

} // namespace rviz_plugin

#endif

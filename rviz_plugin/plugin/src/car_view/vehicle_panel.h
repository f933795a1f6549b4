#ifndef RVIZ_PLUGIN_VEHICLE_PANEL_H
#define RVIZ_PLUGIN_VEHICLE_PANEL_H

#include "vehicle_panels_logic/frame_gate.h"
#include "vehicle_panels_logic/message_intake.h"

#include <rviz/panel.h>

#include <memory>

namespace rviz_plugin {

// What the vehicle state panels share: one painted widget filling the panel on a dark background,
// topics received and checked on the intake's thread, and the newest good message of each topic
// handed to the GUI at most once a frame (DeliverLatest).
class VehiclePanel : public rviz::Panel {
    Q_OBJECT
public:
    // The panels repaint at most this often: 20 a second, enough for values read by eye, and a
    // burst of messages costs the GUI thread no more than that.
    static constexpr int framePeriodMs = 50;

    explicit VehiclePanel(QWidget* parent = nullptr);
    ~VehiclePanel() override;

protected:
    // The memory failure handler, the widget in a layout without margins or spacing, the panel's
    // minimum size and its background.
    void SetUpPanel(QWidget* widget, const QSize& minimumSize);
    MessageIntake& Intake() { return *intake; }

protected Q_SLOTS:
    // In the GUI thread: take the newest good messages and pass them to the widget.
    virtual void DeliverLatest() = 0;

private:
    FrameGate gate;
    std::unique_ptr<MessageIntake> intake;  // after the gate: stopped before the gate goes
};

} // namespace rviz_plugin

#endif

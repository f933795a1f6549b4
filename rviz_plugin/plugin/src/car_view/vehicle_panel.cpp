#include "vehicle_panel.h"

#include "foundation/memory_exception.h"

#include <QHBoxLayout>

#include <new>

namespace rviz_plugin {

VehiclePanel::VehiclePanel(QWidget* parent)
    : rviz::Panel(parent), gate(framePeriodMs), intake(std::make_unique<MessageIntake>([this] { gate.Request(); }))
{
    connect(&gate, &FrameGate::Open, this, &VehiclePanel::DeliverLatest);
}

VehiclePanel::~VehiclePanel()
{
    // No callback may run while the derived panel's members go.
    intake->Stop();
}

void VehiclePanel::SetUpPanel(QWidget* widget, const QSize& minimumSize)
{
    std::set_new_handler(Orsa::HandleMemoryException);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(widget);
    setMinimumSize(minimumSize);
    setAttribute(Qt::WA_StyledBackground, true);
    setStyleSheet("background-color:rgb(20,21,24,255);");
    intake->Start();
}

} // namespace rviz_plugin

#include "car_view_panel.h"

#include "vehicle_panels_logic/vehicle_status_checker.h"

#include <utility>

namespace rviz_plugin {

namespace {
constexpr uint32_t queueSize = 1000;
}

CarViewPanel::CarViewPanel(std::string topic, BaseCarView* view, QWidget* parent)
    : VehiclePanel(parent), topic(std::move(topic)), view(view)
{
    view->setParent(this);
}

void CarViewPanel::onInitialize()
{
    latest = Intake().Subscribe<custom::VehicleStatus, VehicleStatusChecker>(topic, queueSize);
    view->ReadConf();
    qRegisterMetaType<custom::VehicleStatus>("custom::VehicleStatus");
    InitConnect();
    SetUpPanel(view, QSize(376, 178));
}

void CarViewPanel::InitConnect() const
{
    connect(this, &CarViewPanel::ValueChanged, view, &BaseCarView::UpdateValue);
}

void CarViewPanel::DeliverLatest()
{
    custom::VehicleStatus status;
    if (latest && latest->Take(status)) {
        Q_EMIT ValueChanged(status);
    }
}

} // namespace rviz_plugin

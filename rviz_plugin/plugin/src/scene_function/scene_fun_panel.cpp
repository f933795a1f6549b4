#include "scene_fun_panel.h"

#include "scene_function_widget.h"
#include "vehicle_panels_logic/key_object_checker.h"
#include "vehicle_panels_logic/navigation_status_checker.h"

namespace rviz_plugin {

namespace {
constexpr uint32_t queueSize = 1000;
}

SceneFunPanel::SceneFunPanel(QWidget* parent) : VehiclePanel(parent), widget(new SceneFunctionWidget(this))
{
}

void SceneFunPanel::onInitialize()
{
    latestKeyObject = Intake().Subscribe<custom::KeyObject, KeyObjectChecker>("TopicKeyObjects", queueSize);
    latestNavigationStatus =
        Intake().Subscribe<custom::NavigationStatus, NavigationStatusChecker>("TopicNavigationStatus", queueSize);
    widget->ReadConf();
    qRegisterMetaType<custom::KeyObject>("custom::KeyObject");
    qRegisterMetaType<custom::NavigationStatus>("custom::NavigationStatus");
    InitConnect();
    // Looser than the widget's own minimum, as designed.
    SetUpPanel(widget, QSize(300, 107));
}

void SceneFunPanel::InitConnect() const
{
    connect(this, &SceneFunPanel::ValueKeyObjectChanged, widget, &SceneFunctionWidget::UpdateKeyObjectValue);
    connect(this, &SceneFunPanel::ValueNavigationStatusChanged, widget,
            &SceneFunctionWidget::UpdateNavigationStatusValue);
}

void SceneFunPanel::DeliverLatest()
{
    custom::KeyObject keyObject;
    if (latestKeyObject && latestKeyObject->Take(keyObject)) {
        Q_EMIT ValueKeyObjectChanged(keyObject);
    }
    custom::NavigationStatus status;
    if (latestNavigationStatus && latestNavigationStatus->Take(status)) {
        Q_EMIT ValueNavigationStatusChanged(status);
    }
}

} // namespace rviz_plugin

#include "offset_settings_plugin.h"

#include "offset_settings_gui.h"

#include <geometry_msgs/PointStamped.h>
#include <rviz/display_context.h>
#include <rviz/window_manager_interface.h>

namespace rviz_plugin {

OffsetSettingsPlugin::OffsetSettingsPlugin()
{
    shortcut_key_ = 'o';
}

OffsetSettingsPlugin::~OffsetSettingsPlugin()
{
    delete gui;
}

void OffsetSettingsPlugin::onInitialize()
{
    refreshPublisher = nodeHandle.advertise<geometry_msgs::PointStamped>("TopicRefreshMap", 10);
    QWidget* mainWindow =
        context_->getWindowManager() != nullptr ? context_->getWindowManager()->getParentWindow() : nullptr;
    gui = new OffsetSettingsGui(mainWindow);
    gui->Init();
    gui->SetPublisher(refreshPublisher);
    gui->SetContext(context_);
    gui->setWindowModality(Qt::WindowModal);
}

void OffsetSettingsPlugin::activate()
{
    gui->RefreshPage();
    gui->show();
    gui->raise();
}

int OffsetSettingsPlugin::processMouseEvent(rviz::ViewportMouseEvent& /*event*/)
{
    return Finished;
}

} // namespace rviz_plugin

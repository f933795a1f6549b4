#ifndef RVIZ_PLUGIN_OFFSET_SETTINGS_PLUGIN_H
#define RVIZ_PLUGIN_OFFSET_SETTINGS_PLUGIN_H

#include <ros/node_handle.h>
#include <ros/publisher.h>
#include <rviz/tool.h>

namespace rviz_plugin {

class OffsetSettingsGui;

// "Offset Settings": opens the dialog of the map offset and the topics and frames the platform
// shifts; the view goes back to the default tool at the next mouse event.
class OffsetSettingsPlugin : public rviz::Tool {
    Q_OBJECT
public:
    OffsetSettingsPlugin();
    ~OffsetSettingsPlugin() override;

    void onInitialize() override;
    void activate() override;
    void deactivate() override {}
    int processMouseEvent(rviz::ViewportMouseEvent& event) override;
    OffsetSettingsGui* GetConfigurationGui() const { return gui; }

private:
    ros::NodeHandle nodeHandle;
    ros::Publisher refreshPublisher;
    OffsetSettingsGui* gui = nullptr;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_STEREO_TRAFFIC_LIGHT_H
#define RVIZ_PLUGIN_STEREO_TRAFFIC_LIGHT_H

#ifndef Q_MOC_RUN
#include <orsa_msgs/StereoTrafficLightArray.h>
#include <rviz/message_filter_display.h>
#endif

#include "scene_3d/receive_monitor.h"

#include <memory>
#include <vector>

namespace rviz_plugin {

class TrafficlightManager;

// The traffic lights of the intersections ahead as light heads in the 3D view. A bad entry is not shown
// and raises a status naming its field; the other entries are.
class StereoTrafficLight : public rviz::MessageFilterDisplay<orsa_msgs::StereoTrafficLightArray> {
    Q_OBJECT
public:
    StereoTrafficLight();
    ~StereoTrafficLight() override;

    void reset() override;
    const TrafficlightManager* Manager() const { return manager.get(); }

protected:
    void onInitialize() override;
    void onDisable() override;
    void updateTopic() override;
    void processMessage(const orsa_msgs::StereoTrafficLightArray::ConstPtr& message) override;

private:
    void SetName();
    void ClearLightErrorStatus();
    void SetStereoTrafficLightErrorState(const orsa_msgs::StereoTrafficLight& entry);

    std::unique_ptr<TrafficlightManager> manager;
    orsa_msgs::StereoTrafficLightArray::ConstPtr lastMessage;
    std::vector<QString> errorStatusNames;
    ReceiveMonitor* receiveMonitor = nullptr;
};

} // namespace rviz_plugin

#endif

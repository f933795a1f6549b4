#ifndef RVIZ_PLUGIN_STEREO_FREESPACE_DISPLAY_H
#define RVIZ_PLUGIN_STEREO_FREESPACE_DISPLAY_H

#include "stereo_freespace_visual.h"

#include "scene_3d/display_status_sink.h"
#include "scene_3d/receive_monitor.h"

#ifndef Q_MOC_RUN
#include <orsa_msgs/StereoFreespace.h>
#include <rviz/message_filter_display.h>
#endif

#include <array>
#include <memory>

namespace rviz {
class ColorProperty;
class FloatProperty;
} // namespace rviz

namespace rviz_plugin {

// The stereo camera's freespace grid as flat tiles in the 3D view, one colour per cell class. A bad grid
// description drops the message (the last drawing stays); a bad cell is left out.
class StereoFreespaceDisplay : public rviz::MessageFilterDisplay<orsa_msgs::StereoFreespace> {
    Q_OBJECT
public:
    StereoFreespaceDisplay();
    ~StereoFreespaceDisplay() override;

    void reset() override;
    const StereoFreespaceVisual* Visual() const { return visual.get(); }

protected:
    void onInitialize() override;
    void onEnable() override;
    void updateTopic() override;
    void processMessage(const orsa_msgs::StereoFreespace::ConstPtr& message) override;

private Q_SLOTS:
    void OnFreespaceColorChanged();
    void OnNonFreespaceColorChanged();
    void OnUnknownSpaceColorChanged();

private:
    void SetName();
    void ReRender();
    // Copies a class's colour and alpha from its properties.
    void UpdateColor(int cellClass);

    StereoFreespaceColors colors;
    DisplayStatusSink statusSink{this};
    std::unique_ptr<StereoFreespaceChecker> checker;
    std::unique_ptr<StereoFreespaceVisual> visual;
    orsa_msgs::StereoFreespace::ConstPtr lastMessage;
    ReceiveMonitor* receiveMonitor = nullptr;
    std::array<rviz::ColorProperty*, FreespaceTiles::classCount> colorProperties{};
    std::array<rviz::FloatProperty*, FreespaceTiles::classCount> alphaProperties{};
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_DISPLAY_STATUS_SINK_H
#define RVIZ_PLUGIN_DISPLAY_STATUS_SINK_H

#include "scene_3d_logic/status_sink.h"

namespace rviz {
class Display;
class IntProperty;
class BoolProperty;
} // namespace rviz

namespace rviz_plugin {

// The checks' statuses as entries of a display's status tree.
class DisplayStatusSink : public StatusSink {
public:
    explicit DisplayStatusSink(rviz::Display* display) : display(display) {}

    void SetStatus(Level level, const QString& name, const QString& text) override;
    void DeleteStatus(const QString& name) override;

private:
    rviz::Display* display;
};

// The message filter's own "Queue Size" with this family's default and range (10, 5 to 10000), and its
// "Unreliable" hidden.
void InitQueueSizeProperty(rviz::IntProperty* queueSize, rviz::BoolProperty* unreliable);

// "Name(topic)", or the name alone without a topic.
QString DisplayNameWithTopic(const QString& name, const QString& topic);

} // namespace rviz_plugin

#endif

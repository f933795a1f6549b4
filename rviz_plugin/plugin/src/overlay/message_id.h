#ifndef RVIZ_PLUGIN_MESSAGE_ID_H
#define RVIZ_PLUGIN_MESSAGE_ID_H

#include <QMetaType>

namespace rviz_plugin {

// The inputs of a video item.
enum MessageId : int {
    Image = 0,
    Objects = 1,
    TrafficLights = 2,
    RoadLines = 3,
    Freespace = 4,
    SemanticSegmentation = 5,
    MarkerArray = 6,
};

} // namespace rviz_plugin

Q_DECLARE_METATYPE(rviz_plugin::MessageId)

#endif

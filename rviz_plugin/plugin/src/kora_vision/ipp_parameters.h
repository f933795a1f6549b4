#ifndef RVIZ_PLUGIN_IPP_PARAMETERS_H
#define RVIZ_PLUGIN_IPP_PARAMETERS_H

#include "message_id.h"

#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace rviz_plugin {

// Settings of one input.
struct Message {
    virtual ~Message() = default;
    std::string name;
    bool enabled = false;
    unsigned queueSize = 30;
};

// What the overlay thread reads of the item's settings.
struct IppConfig {
    // Length limit of every queue of the overlay node ("Time Sync Queue Size").
    unsigned queueSize = 30;
    std::map<MessageId, Message> messages;
};

// Settings shared by the property tree (writer, main thread) and the overlay thread (reader),
// with a flag that tells the reader to take a new copy.
struct IppParameters {
    std::vector<MessageId> messageIds = {Image, Objects, TrafficLights, RoadLines, Freespace, SemanticSegmentation,
                                         MarkerArray};
    IppConfig config;
    bool configChanged = true;
    std::mutex mutex;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_IPP_PARAMETERS_H
#define RVIZ_PLUGIN_IPP_PARAMETERS_H

#include "ipp_config.h"

#include <mutex>
#include <vector>

namespace rviz_plugin {

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

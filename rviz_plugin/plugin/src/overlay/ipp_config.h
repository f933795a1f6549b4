#ifndef RVIZ_PLUGIN_IPP_CONFIG_H
#define RVIZ_PLUGIN_IPP_CONFIG_H

#include "message_id.h"

#include <array>
#include <cstdint>
#include <map>
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

// How the results of one classification value look: text and colour (red, green, blue); road
// lines add their thickness and style, segmentation its alpha.
struct ClassificationDisplay {
    std::string text;
    std::array<uint8_t, 3> color{{255, 255, 255}};
    int lineThickness = 2;
    bool isSolid = true;
    uint8_t alpha = 102;
};
using Classifications = std::map<unsigned, ClassificationDisplay>;

// Label settings of objects, traffic lights and road lines.
struct LabelDisplay {
    float textScale = 0.7F;
    int textThickness = 1;
    bool showClassificationText = true;
    bool showConfidence = true;
    bool showObjectId = false;
    bool showTrackId = false;
    bool showTextDisplay = false;
};

// Texts of the classification rows a new item starts with, by value from 0.
struct DefaultClassificationTexts {
    static const std::vector<std::string> objects;
    static const std::vector<std::string> trafficLights;
    static const std::vector<std::string> roadLines;
    static const std::vector<std::string> semanticSegmentation;
};

// What the overlay thread reads of the item's settings. The classification tables start with the
// rows a new item shows.
struct IppConfig {
    IppConfig();

    // Length limit of every queue of the overlay node ("Time Sync Queue Size").
    unsigned queueSize = 30;
    std::map<MessageId, Message> messages;
    LabelDisplay objectDisplay;
    Classifications objectClassifications;
    LabelDisplay imageRectangleDisplay;
    Classifications imageRectangleClassifications;
    LabelDisplay imageLineDisplay;
    Classifications imageLineClassifications;
    // Red, green, blue, alpha.
    std::array<uint8_t, 4> freespaceColor{{0, 0, 255, 102}};
    Classifications semanticSegmentationClassifications;
    int markerThickness = 1;

    bool IsEnabled(MessageId id) const;
};

} // namespace rviz_plugin

#endif

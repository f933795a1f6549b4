#ifndef RVIZ_PLUGIN_COLOR_POOL_H
#define RVIZ_PLUGIN_COLOR_POOL_H

#include <QColor>

#include <vector>

namespace rviz_plugin {

// Colours that new classification entries start with.
class ColorPool {
public:
    enum ColorType { Objects = 0, TrafficLights = 1, Lines = 2, SemanticSegmentation = 3 };

    // The table's colour at index modulo its size; green for lines, white for an unknown type.
    static QColor GetColor(const unsigned& index, ColorType type);

    static const std::vector<QColor> COLOR_POOL;
    static const std::vector<QColor> TRAFFIC_COLOR_POOL;
    static const std::vector<QColor> SEMANTIC_SEGMENTATION_COLOR_POOL;
};

} // namespace rviz_plugin

#endif

#include "color_pool.h"

namespace rviz_plugin {

const std::vector<QColor> ColorPool::COLOR_POOL = {
    {255, 204, 2}, {60, 56, 239}, {63, 165, 53}, {0, 125, 190}, {134, 221, 227}, {243, 142, 0}, {241, 84, 0},
    {223, 8, 0},
};

const std::vector<QColor> ColorPool::TRAFFIC_COLOR_POOL = {
    {255, 255, 255}, {255, 0, 0}, {0, 255, 0}, {255, 255, 0}, {0, 0, 0},
};

const std::vector<QColor> ColorPool::SEMANTIC_SEGMENTATION_COLOR_POOL = {
    {121, 254, 126}, {157, 102, 63}, {255, 89, 89}, {93, 222, 255}, {162, 139, 255}, {43, 97, 255}, {255, 246, 94},
    {255, 114, 213},
};

namespace {
QColor FromTable(const std::vector<QColor>& table, unsigned index)
{
    return table[index % table.size()];
}
} // namespace

QColor ColorPool::GetColor(const unsigned& index, ColorType type)
{
    switch (type) {
    case Objects:
        return FromTable(COLOR_POOL, index);
    case TrafficLights:
        return FromTable(TRAFFIC_COLOR_POOL, index);
    case Lines:
        return QColor(Qt::green);
    case SemanticSegmentation:
        return FromTable(SEMANTIC_SEGMENTATION_COLOR_POOL, index);
    }
    return QColor(Qt::white);
}

} // namespace rviz_plugin

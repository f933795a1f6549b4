#include "ipp_config.h"

#include "foundation/color_pool.h"

#include <vector>

namespace rviz_plugin {

namespace {
Classifications DefaultRows(const std::vector<std::string>& texts, ColorPool::ColorType type)
{
    Classifications rows;
    for (unsigned value = 0; value < texts.size(); ++value) {
        const QColor color = ColorPool::GetColor(value, type);
        ClassificationDisplay& row = rows[value];
        row.text = texts[value];
        row.color = {static_cast<uint8_t>(color.red()), static_cast<uint8_t>(color.green()),
                     static_cast<uint8_t>(color.blue())};
    }
    return rows;
}
} // namespace

IppConfig::IppConfig()
    : objectClassifications(DefaultRows({"bus", "person", "bike", "truck", "motor", "car", "rider", "unknown"},
                                        ColorPool::Objects)),
      imageRectangleClassifications(
          DefaultRows({"unknown", "red", "green", "yellow", "off"}, ColorPool::TrafficLights)),
      imageLineClassifications(DefaultRows({"0", "1"}, ColorPool::Lines)),
      semanticSegmentationClassifications(DefaultRows(std::vector<std::string>(8), ColorPool::SemanticSegmentation))
{
    messages[Image].enabled = true;
}

bool IppConfig::IsEnabled(MessageId id) const
{
    const auto found = messages.find(id);
    return found != messages.end() && found->second.enabled;
}

} // namespace rviz_plugin

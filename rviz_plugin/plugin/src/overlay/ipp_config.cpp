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

const std::vector<std::string> DefaultClassificationTexts::objects = {"bus",   "person", "bike",  "truck",
                                                                     "motor", "car",    "rider", "unknown"};
const std::vector<std::string> DefaultClassificationTexts::trafficLights = {"unknown", "red", "green", "yellow", "off"};
const std::vector<std::string> DefaultClassificationTexts::roadLines = {"0", "1"};
const std::vector<std::string> DefaultClassificationTexts::semanticSegmentation(8);

IppConfig::IppConfig()
    : objectClassifications(DefaultRows(DefaultClassificationTexts::objects, ColorPool::Objects)),
      imageRectangleClassifications(DefaultRows(DefaultClassificationTexts::trafficLights, ColorPool::TrafficLights)),
      imageLineClassifications(DefaultRows(DefaultClassificationTexts::roadLines, ColorPool::Lines)),
      semanticSegmentationClassifications(
          DefaultRows(DefaultClassificationTexts::semanticSegmentation, ColorPool::SemanticSegmentation))
{
    messages[Image].enabled = true;
}

bool IppConfig::IsEnabled(MessageId id) const
{
    const auto found = messages.find(id);
    return found != messages.end() && found->second.enabled;
}

} // namespace rviz_plugin

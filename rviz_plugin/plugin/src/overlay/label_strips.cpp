#include "label_strips.h"

#include <cstring>

namespace rviz_plugin {
namespace ImageUtils {

std::string LabelStrips::Key(const std::vector<std::string>& rows, const DisplayProperties& properties)
{
    const double numbers[] = {properties.boxColor[0], properties.boxColor[1], properties.boxColor[2],
                              properties.boxColor[3], properties.fontScale,   static_cast<double>(properties.textThickness),
                              static_cast<double>(properties.baseline)};
    std::string key(reinterpret_cast<const char*>(numbers), sizeof(numbers));
    for (const std::string& row : rows) {
        key += row;
        key += '\n';
    }
    return key;
}

LabelStrips::Strip LabelStrips::Render(const std::vector<std::string>& rows, DisplayProperties& properties)
{
    Strip strip;
    strip.size = GetMultiRowsLabelBackgroundSize(rows, properties, strip.rowHeight);
    strip.baseline = properties.baseline;
    // Drawn on a clear canvas with a margin: if the text leaves a mark in the margin, it reaches
    // outside the box and blends with what lies there, so the label cannot be copied.
    const int margin = strip.rowHeight;
    cv::Mat canvas(strip.size.height + 2 * margin, strip.size.width + 2 * margin, CV_8UC4, cv::Scalar::all(0));
    const cv::Rect box(margin, margin, strip.size.width, strip.size.height);
    DrawLabel(canvas, rows, box.tl(), strip.size, strip.rowHeight, properties);
    cv::Mat outside = canvas.clone();
    outside(box).setTo(cv::Scalar::all(0));
    if (cv::countNonZero(outside.reshape(1)) == 0) {
        strip.pixels = canvas(box).clone();
    }
    return strip;
}

const LabelStrips::Strip& LabelStrips::Get(const std::vector<std::string>& rows, DisplayProperties& properties)
{
    std::string key = Key(rows, properties);
    auto found = strips.find(key);
    if (found == strips.end()) {
        if (strips.size() >= capacity) {
            strips.clear();
        }
        found = strips.emplace(std::move(key), Render(rows, properties)).first;
    }
    properties.baseline = found->second.baseline;
    return found->second;
}

void LabelStrips::Put(cv::Mat& image, const Strip& strip, const std::vector<std::string>& rows,
                      const cv::Point& topLeft, const DisplayProperties& properties)
{
    // Text cut by the canvas edge is drawn differently from its uncut strokes: such a label is drawn.
    const cv::Rect target(topLeft, strip.size);
    if (strip.pixels.empty() || (target & cv::Rect(0, 0, image.cols, image.rows)) != target) {
        DrawLabel(image, rows, topLeft, strip.size, strip.rowHeight, properties);
        return;
    }
    strip.pixels.copyTo(image(target));
}

} // namespace ImageUtils
} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_LABEL_STRIPS_H
#define RVIZ_PLUGIN_LABEL_STRIPS_H

#include "image_utils.h"

#include <opencv2/core.hpp>

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace rviz_plugin {
namespace ImageUtils {

// Labels drawn once and copied afterwards. A label (its rows written on a filled box) depends only
// on its rows, box colour, font scale, text thickness and starting baseline, and covers everything
// under its box, so its pixels are kept and copied wherever the same label goes again. A label whose
// text would reach outside its box, or that the canvas edge cuts, is drawn instead, so the canvas is
// always what direct drawing gives. Used by one overlay thread; the kept labels are dropped all at once at capacity.
class LabelStrips {
public:
    struct Strip {
        cv::Size size;
        int rowHeight = 0;
        int baseline = 0;
        cv::Mat pixels;  // empty for a label that is drawn every time
    };

    explicit LabelStrips(std::size_t capacity = defaultCapacity) : capacity(capacity) {}

    // The label of rows in properties' box colour and font; raises properties.baseline as measuring
    // the label does.
    const Strip& Get(const std::vector<std::string>& rows, DisplayProperties& properties);
    // Puts the label with its top left corner at topLeft, copied when it lies wholly on the image and
    // drawn otherwise; properties as Get left them.
    static void Put(cv::Mat& image, const Strip& strip, const std::vector<std::string>& rows,
                    const cv::Point& topLeft, const DisplayProperties& properties);
    std::size_t Size() const { return strips.size(); }

    static constexpr std::size_t defaultCapacity = 512;

private:
    static std::string Key(const std::vector<std::string>& rows, const DisplayProperties& properties);
    static Strip Render(const std::vector<std::string>& rows, DisplayProperties& properties);

    std::size_t capacity;
    std::unordered_map<std::string, Strip> strips;
};

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

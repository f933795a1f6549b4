#ifndef RVIZ_PLUGIN_MASK_UTILS_H
#define RVIZ_PLUGIN_MASK_UTILS_H

#include <QString>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

#include <opencv2/core.hpp>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

// Checks and painting shared by the freespace and segmentation overlays: a one-byte mask,
// stretched over the canvas, painted through a table of 256 colours.
namespace rviz_plugin {
namespace ImageUtils {

// The status texts of one kind of mask; %1.. are filled as told beside each.
struct MaskTexts {
    QString frameIdMismatch;
    QString widthTooLarge;   // mask width, canvas width
    QString heightTooLarge;  // mask height, canvas height
    QString noPixels;
    QString pixelCountMismatch;  // pixel count, width, height
    QString tooLarge;            // width, height, limit
    QString tooSmall;            // width, height, limit
};

using SetMaskStatus = std::function<void(rviz::StatusProperty::Level, const QString&)>;

// Runs the checks in order and reports the first fault through setStatus (or removes the status
// through removeStatus when the mask is fine). True when the mask can be drawn.
bool CheckMask(const cv::Mat& canvas, const MaskTexts& texts, bool frameIdMatches, uint32_t width, uint32_t height,
               std::size_t pixelCount, const SetMaskStatus& setStatus, const std::function<void()>& removeStatus);

// Colours in canvas byte order (blue, green, red, alpha), by mask value.
using ColorTable = std::array<std::array<uint8_t, 4>, 256>;

// Paints every canvas pixel from the mask pixel that nearest-neighbour scaling maps onto it
// (the mapping of cv::resize with INTER_NEAREST). With skipZero, pixels of value 0 stay as they are.
void OverlayNearest(const uint8_t* mask, int width, int height, const ColorTable& colors, bool skipZero,
                    cv::Mat& canvas);

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

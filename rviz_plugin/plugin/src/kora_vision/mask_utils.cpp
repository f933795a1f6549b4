#include "mask_utils.h"

#include <cstring>

namespace rviz_plugin {
namespace ImageUtils {

namespace {
constexpr uint64_t maxPixels = 400000;
constexpr uint64_t minPixels = 200000;
} // namespace

bool CheckMask(const cv::Mat& canvas, const MaskTexts& texts, bool frameIdMatches, uint32_t width, uint32_t height,
               std::size_t pixelCount, const SetMaskStatus& setStatus, const std::function<void()>& removeStatus)
{
    if (!frameIdMatches) {
        setStatus(rviz::StatusProperty::Warn, texts.frameIdMismatch);
        return false;
    }
    if (canvas.cols == 0) {
        setStatus(rviz::StatusProperty::Error, "The width value of the original image should not be zero.");
        return false;
    }
    if (canvas.rows == 0) {
        setStatus(rviz::StatusProperty::Error, "The height value of the original image should not be zero.");
        return false;
    }
    if (width > static_cast<uint32_t>(canvas.cols)) {
        setStatus(rviz::StatusProperty::Error, texts.widthTooLarge.arg(width).arg(canvas.cols));
        return false;
    }
    if (height > static_cast<uint32_t>(canvas.rows)) {
        setStatus(rviz::StatusProperty::Error, texts.heightTooLarge.arg(height).arg(canvas.rows));
        return false;
    }
    if (pixelCount == 0) {
        setStatus(rviz::StatusProperty::Error, texts.noPixels);
        return false;
    }
    const uint64_t pixels = static_cast<uint64_t>(width) * height;
    if (pixelCount != pixels) {
        setStatus(rviz::StatusProperty::Error, texts.pixelCountMismatch.arg(pixelCount).arg(width).arg(height));
        return false;
    }
    if (pixels > maxPixels) {
        setStatus(rviz::StatusProperty::Warn, texts.tooLarge.arg(width).arg(height).arg(maxPixels));
    } else if (pixels < minPixels) {
        setStatus(rviz::StatusProperty::Warn, texts.tooSmall.arg(width).arg(height).arg(minPixels));
    } else {
        removeStatus();
    }
    return true;
}

void OverlayNearest(const uint8_t* mask, int width, int height, const ColorTable& colors, bool skipZero,
                    cv::Mat& canvas)
{
    const int canvasWidth = canvas.cols;
    const int canvasHeight = canvas.rows;
    std::vector<int> sourceColumn(static_cast<std::size_t>(canvasWidth));
    const double columnScale = static_cast<double>(width) / canvasWidth;
    for (int x = 0; x < canvasWidth; ++x) {
        sourceColumn[static_cast<std::size_t>(x)] = std::min(static_cast<int>(cvFloor(x * columnScale)), width - 1);
    }
    const double rowScale = static_cast<double>(height) / canvasHeight;
    for (int y = 0; y < canvasHeight; ++y) {
        const int sourceRow = std::min(static_cast<int>(cvFloor(y * rowScale)), height - 1);
        const uint8_t* source = mask + static_cast<std::size_t>(sourceRow) * static_cast<std::size_t>(width);
        uint8_t* target = canvas.ptr<uint8_t>(y);
        for (int x = 0; x < canvasWidth; ++x) {
            const uint8_t value = source[sourceColumn[static_cast<std::size_t>(x)]];
            if (value != 0 || !skipZero) {
                std::memcpy(target + 4 * x, colors[value].data(), 4);
            }
        }
    }
}

} // namespace ImageUtils
} // namespace rviz_plugin

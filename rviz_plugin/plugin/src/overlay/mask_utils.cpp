#include "mask_utils.h"

#include <algorithm>
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
    // Each mask column covers a run of canvas columns; the runs are found once and filled whole.
    struct Run {
        int source;
        int begin;
        int end;
    };
    std::vector<Run> runs;
    runs.reserve(static_cast<std::size_t>(width));
    const double columnScale = static_cast<double>(width) / canvas.cols;
    for (int x = 0; x < canvas.cols; ++x) {
        const int source = std::min(static_cast<int>(cvFloor(x * columnScale)), width - 1);
        if (runs.empty() || runs.back().source != source) {
            runs.push_back({source, x, x + 1});
        } else {
            runs.back().end = x + 1;
        }
    }
    const double rowScale = static_cast<double>(height) / canvas.rows;
    int previousSourceRow = -1;
    for (int y = 0; y < canvas.rows; ++y) {
        const int sourceRow = std::min(static_cast<int>(cvFloor(y * rowScale)), height - 1);
        cv::Vec4b* target = canvas.ptr<cv::Vec4b>(y);
        // Painting every pixel, a row that comes from the same mask row as the one above is a copy of it.
        if (!skipZero && sourceRow == previousSourceRow) {
            std::memcpy(target, canvas.ptr<cv::Vec4b>(y - 1), static_cast<std::size_t>(canvas.cols) * 4);
            continue;
        }
        previousSourceRow = sourceRow;
        const uint8_t* source = mask + static_cast<std::size_t>(sourceRow) * static_cast<std::size_t>(width);
        for (const Run& run : runs) {
            const uint8_t value = source[run.source];
            if (value == 0 && skipZero) {
                continue;
            }
            const cv::Vec4b color(colors[value][0], colors[value][1], colors[value][2], colors[value][3]);
            std::fill(target + run.begin, target + run.end, color);
        }
    }
}

} // namespace ImageUtils
} // namespace rviz_plugin

#include "mask_utils.h"

#include <algorithm>
#include <array>
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

namespace {
// count copies of word from target on, in doubling block copies.
void FillWords(uint32_t* target, int count, uint32_t word)
{
    if (count <= 0) {
        return;
    }
    target[0] = word;
    int filled = 1;
    while (filled < count) {
        const int copied = std::min(filled, count - filled);
        std::memcpy(target + filled, target, static_cast<std::size_t>(copied) * sizeof(uint32_t));
        filled += copied;
    }
}
} // namespace

void OverlayNearest(const uint8_t* mask, int width, int height, const ColorTable& colors, bool skipZero,
                    cv::Mat& canvas)
{
    // The first canvas column of each mask column (the mask is never wider than the canvas, so every
    // mask column has some), and the canvas width after the last.
    std::vector<int> columnStart(static_cast<std::size_t>(width) + 1, canvas.cols);
    const double columnScale = static_cast<double>(width) / canvas.cols;
    for (int x = canvas.cols - 1; x >= 0; --x) {
        columnStart[static_cast<std::size_t>(std::min(static_cast<int>(cvFloor(x * columnScale)), width - 1))] = x;
    }
    // The spans of one mask row: neighbouring columns of one value joined, zeros left out when
    // skipped, so that only the pixels the mask paints are touched, a block at a time.
    struct Span {
        int begin;
        int end;
        uint8_t value;
    };
    std::vector<Span> spans;
    std::array<uint32_t, 256> words{};
    for (std::size_t value = 0; value < words.size(); ++value) {
        std::memcpy(&words[value], colors[value].data(), sizeof(uint32_t));
    }
    const double rowScale = static_cast<double>(height) / canvas.rows;
    int previousSourceRow = -1;
    for (int y = 0; y < canvas.rows; ++y) {
        const int sourceRow = std::min(static_cast<int>(cvFloor(y * rowScale)), height - 1);
        uint32_t* target = canvas.ptr<uint32_t>(y);
        if (sourceRow == previousSourceRow) {
            // Painting every pixel, a row that comes from the same mask row as the one above is a copy of it.
            if (!skipZero) {
                std::memcpy(target, canvas.ptr<uint32_t>(y - 1), static_cast<std::size_t>(canvas.cols) * 4);
                continue;
            }
        } else {
            previousSourceRow = sourceRow;
            const uint8_t* source = mask + static_cast<std::size_t>(sourceRow) * static_cast<std::size_t>(width);
            spans.clear();
            for (int column = 0; column < width;) {
                const uint8_t value = source[column];
                int next = column + 1;
                while (next < width && source[next] == value) {
                    ++next;
                }
                if (value != 0 || !skipZero) {
                    spans.push_back({columnStart[static_cast<std::size_t>(column)],
                                     columnStart[static_cast<std::size_t>(next)], value});
                }
                column = next;
            }
        }
        for (const Span& span : spans) {
            FillWords(target + span.begin, span.end - span.begin, words[span.value]);
        }
    }
}

} // namespace ImageUtils
} // namespace rviz_plugin

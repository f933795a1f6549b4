#include "image_semantic_segmentation_utils.h"

#include "mask_utils.h"

#include <opencv2/imgproc.hpp>

namespace rviz_plugin {
namespace ImageUtils {

namespace {
const char* const statusKey = "SemanticSegmentation";
// cv::resize knows the interpolation codes 0 to 6; a higher one makes it throw.
constexpr int maxInterpolation = cv::INTER_NEAREST_EXACT;

const MaskTexts& SegmentationTexts()
{
    static const MaskTexts texts{
        "The frame_id of the SemanticSegmentation does not match that of the Image. Check whether the "
        "SemanticSegmentation frame_id is correctly set.",
        "The width value (%1) under SemanticSegmentation should not be greater than that (%2) of the original image.",
        "The height value (%1) under SemanticSegmentation should not be greater than that (%2) of the original "
        "image.",
        "The number of pixels in the classification field should not be zero.",
        "The number of pixels (%1) in the classification field should be equal to the value of width x height (%2 x "
        "%3).",
        "The SemanticSegmentation data received is too large, and the number of pixels in a semantic segmentation "
        "image (%1 x %2) exceeds %3, occupying excessive network bandwidth. Resize the images to 768 x 512 or smaller "
        "before sending the SemanticSegmentation data.",
        "The SemanticSegmentation data received is too small, and the number of pixels in a semantic segmentation "
        "image (%1 x %2) is smaller than %3. As a result, the image displayed based on the received data may be "
        "different from the original image.",
    };
    return texts;
}
} // namespace

bool ImageSemanticSegmentationUtils::Draw(cv::Mat& image, const IppConfig& config,
                                          const orsa_msgs::SemanticSegmentation& message, bool frameIdMatches) const
{
    const auto setStatus = [this](rviz::StatusProperty::Level level, const QString& text) {
        Q_EMIT AddImageSemanticSegmentationStatus(level, statusKey, text);
    };
    const bool drawable = CheckMask(image, SegmentationTexts(), frameIdMatches, message.width, message.height,
                                    message.classification.size(), setStatus,
                                    [this]() { Q_EMIT RemoveImageSemanticSegmentationStatus(statusKey); });
    if (!drawable) {
        return false;
    }
    const int interpolation = message.segmentationReservedByte;
    if (interpolation > maxInterpolation) {
        setStatus(rviz::StatusProperty::Error,
                  QString("The segmentationReservedByte (%1) under SemanticSegmentation is not an interpolation method "
                          "of 0 to %2. Check whether the SemanticSegmentation parameter is correctly set.")
                      .arg(interpolation)
                      .arg(maxInterpolation));
        return false;
    }
    ColorTable colors{};
    for (const auto& entry : config.semanticSegmentationClassifications) {
        if (entry.first < colors.size()) {
            const auto& rgb = entry.second.color;
            colors[entry.first] = {rgb[2], rgb[1], rgb[0], entry.second.alpha};
        }
    }
    const int width = static_cast<int>(message.width);
    const int height = static_cast<int>(message.height);
    if (interpolation == cv::INTER_NEAREST) {
        OverlayNearest(message.classification.data(), width, height, colors, false, image);
        return true;
    }
    const cv::Mat mask(height, width, CV_8UC1, const_cast<uint8_t*>(message.classification.data()));
    cv::Mat resized;
    cv::resize(mask, resized, image.size(), 0, 0, interpolation);
    OverlayNearest(resized.data, resized.cols, resized.rows, colors, false, image);
    return true;
}

} // namespace ImageUtils
} // namespace rviz_plugin

#include "image_freespace_utils.h"

#include "mask_utils.h"

namespace rviz_plugin {
namespace ImageUtils {

namespace {
const char* const statusKey = "ImageFreespace";

const MaskTexts& FreespaceTexts()
{
    static const MaskTexts texts{
        "The frame_id of the ImageFreespace does not match that of the Image. Check whether the ImageFreespace "
        "frame_id is correctly set.",
        "The width value (%1) under ImageFreespace should not be greater than that (%2) of the original image.",
        "The height value (%1) under ImageFreespace should not be greater than that (%2) of the original image.",
        "The number of pixels in the pixelValues field should not be zero.",
        "The number of pixels (%1) in the pixelValues field should be equal to the value of width x height (%2 x "
        "%3).",
        "The ImageFreespace data received is too large, and the number of pixels in a freespace image (%1 x %2) "
        "exceeds %3, occupying excessive network bandwidth. Resize the images to 768 x 512 or smaller before sending "
        "the ImageFreeSpace data.",
        "The ImageFreespace data received is too small, and the number of pixels in a freespace image (%1 x %2) is "
        "smaller than %3. As a result, the image displayed based on the received data may be different from the "
        "original image.",
    };
    return texts;
}
} // namespace

void ImageFreespaceUtils::Draw(cv::Mat& image, const IppConfig& config, const orsa_msgs::ImageFreespace& message,
                               bool frameIdMatches) const
{
    const bool drawable = CheckMask(
        image, FreespaceTexts(), frameIdMatches, message.width, message.height, message.pixelValues.size(),
        [this](rviz::StatusProperty::Level level, const QString& text) {
            Q_EMIT AddImageFreespaceStatus(level, statusKey, text);
        },
        [this]() { Q_EMIT RemoveImageFreespaceStatus(statusKey); });
    if (!drawable) {
        return;
    }
    ColorTable colors{};
    const auto& rgba = config.freespaceColor;
    colors.fill({rgba[2], rgba[1], rgba[0], rgba[3]});
    OverlayNearest(message.pixelValues.data(), static_cast<int>(message.width), static_cast<int>(message.height),
                   colors, true, image);
}

} // namespace ImageUtils
} // namespace rviz_plugin

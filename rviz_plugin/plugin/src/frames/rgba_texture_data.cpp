#include "rgba_texture_data.h"

#include "foundation/logger.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace rviz_plugin {

bool RgbaTextureData::ConvertToTextureImage(std::vector<uint8_t>& buffer, std_msgs::Header& header,
                                            TransformCore& core)
{
    constexpr int channels = 4;
    if (image == nullptr) {
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error,
                                             "No available sensor image data for texture.");
        return false;
    }
    header = image->header;
    CalcImageSize(image->width, image->height, core.windowWidth, core.windowHeight, core.textureWidth,
                  core.textureHeight);
    if (core.textureWidth == 0 || core.textureHeight == 0) {
        LogTextureSizeError(core.textureWidth, core.textureHeight);
        return false;
    }
    // A canvas whose buffer is shorter than its size says cannot be wrapped.
    const std::size_t needed = static_cast<std::size_t>(image->width) * image->height * channels;
    if (image->data.size() < needed) {
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error,
                                             "No available sensor image data for texture.");
        return false;
    }
    const cv::Mat source(static_cast<int>(image->height), static_cast<int>(image->width), CV_8UC4,
                         image->data.data(), static_cast<std::size_t>(image->width) * channels);
    buffer.resize(static_cast<std::size_t>(core.textureWidth) * core.textureHeight * channels);
    cv::Mat target(static_cast<int>(core.textureHeight), static_cast<int>(core.textureWidth), CV_8UC4,
                   buffer.data());
    cv::resize(source, target, target.size(), 0, 0, cv::INTER_LINEAR);
    return true;
}

} // namespace rviz_plugin

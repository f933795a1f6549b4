#include "yuv_texture_data.h"

#include "extern_ffmpeg.h"

#include "foundation/logger.h"

namespace rviz_plugin {

namespace {
void LogError(const std::string& message)
{
    Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error, message);
}
} // namespace

YuvTextureData::YuvTextureData() : TextureData(Ogre::PF_R8G8B8), frame(ExternAvFrameAlloc())
{
    if (frame == nullptr) {
        LogError("Failed to initialize the decoder: AVFrame. Memory may be insufficient. Release memory and "
                 "restart Orsa.");
    }
}

YuvTextureData::~YuvTextureData()
{
    ExternAvFrameFree(&frame);
}

void YuvTextureData::SetFrameData(AVFrame* source)
{
    if (frame == nullptr || source == nullptr) {
        return;
    }
    ExternAvFrameUnref(frame);
    ExternAvFrameMoveRef(frame, source);
}

bool YuvTextureData::Init(const Param& source, const Param& target, TransformCore& core)
{
    if (core.context != nullptr && core.source == source && core.target == target) {
        return true;  // the scaler of the last picture fits this one
    }
    if (core.context != nullptr) {
        ExternSwsFreeContext(core.context);
        core.context = nullptr;
    }
    core.context = ExternSwsGetContext(source.width, source.height, static_cast<AVPixelFormat>(source.format),
                                       target.width, target.height, static_cast<AVPixelFormat>(target.format),
                                       SWS_POINT, nullptr, nullptr, nullptr);
    if (core.context == nullptr) {
        LogError("Failed to allocate memory for SwsContext. Memory may be insufficient. Release memory and restart "
                 "Orsa.");
        return false;
    }
    core.source = source;
    core.target = target;
    return true;
}

bool YuvTextureData::ConvertToTextureImage(std::vector<uint8_t>& buffer, std_msgs::Header& outHeader,
                                           TransformCore& core)
{
    outHeader = header;
    if (frame == nullptr || frame->width <= 0 || frame->height <= 0) {
        LogError("The width or the height of decoded frame is 0. Frame width: " +
                 std::to_string(frame == nullptr ? 0 : frame->width) +
                 ", frame height: " + std::to_string(frame == nullptr ? 0 : frame->height) + ".");
        return false;
    }
    CalcImageSize(static_cast<unsigned>(frame->width), static_cast<unsigned>(frame->height), core.windowWidth,
                  core.windowHeight, core.textureWidth, core.textureHeight);
    if (core.textureWidth == 0 || core.textureHeight == 0) {
        LogTextureSizeError(core.textureWidth, core.textureHeight);
        return false;
    }
    int format = frame->format == AV_PIX_FMT_YUVJ420P ? AV_PIX_FMT_YUV420P : frame->format;
    if (format == AV_PIX_FMT_NONE) {
        LogError("Invalid decoded frame format.");
        return false;
    }
    const Param source{frame->width, frame->height, format};
    const Param target{static_cast<int>(core.textureWidth), static_cast<int>(core.textureHeight), AV_PIX_FMT_BGR24};
    if (!Init(source, target, core)) {
        return false;
    }
    const int stride = target.width * bytesPerPixel;
    buffer.resize(static_cast<std::size_t>(stride) * static_cast<std::size_t>(target.height));
    uint8_t* destination[4] = {buffer.data(), nullptr, nullptr, nullptr};
    const int destinationStride[4] = {stride, 0, 0, 0};
    const int scaled = ExternSwsScale(core.context, frame->data, frame->linesize, 0, frame->height, destination,
                                      destinationStride);
    return scaled == target.height;
}

} // namespace rviz_plugin

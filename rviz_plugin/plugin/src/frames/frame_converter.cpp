#include "frame_converter.h"

#include "extern_ffmpeg.h"

#include "foundation/logger.h"

#include <algorithm>

namespace rviz_plugin {

namespace {
const char* const logModule = "RecordVideoDataTool";
constexpr int maxPlanes = 8;

void LogError(const std::string& text)
{
    Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Error, text);
}

int SourceFormat(int format)
{
    return format == AV_PIX_FMT_YUVJ420P ? AV_PIX_FMT_YUV420P : format;
}

} // namespace

FrameConverter::~FrameConverter()
{
    ExternSwsFreeContext(context);
}

bool FrameConverter::Scale(const uint8_t* const planes[], const int strides[], int width, int height, int format,
                           AVFrame* destination)
{
    if (destination == nullptr) {
        LogError("Output frame is null.");
        return false;
    }
    // Returns the scaler it was given while the parameters match; on failure the old one is already freed.
    context = ExternSwsGetCachedContext(context, width, height, static_cast<AVPixelFormat>(SourceFormat(format)),
                                        destination->width, destination->height,
                                        static_cast<AVPixelFormat>(destination->format), SWS_POINT, nullptr, nullptr,
                                        nullptr);
    if (context == nullptr) {
        return false;
    }
    ExternSwsScale(context, planes, strides, 0, height, destination->data, destination->linesize);
    return true;
}

AVFrame* FrameConverter::AllocAvFrame(int width, int height)
{
    AVFrame* frame = ExternAvFrameAlloc();
    if (frame == nullptr) {
        return nullptr;
    }
    frame->width = width;
    frame->height = height;
    frame->format = AV_PIX_FMT_BGRA;
    if (width <= 0 || height <= 0 || ExternAvFrameGetBuffer(frame, 0) < 0) {
        ExternAvFrameFree(&frame);
        return nullptr;
    }
    return frame;
}

bool FrameConverter::ConvertVideoFrame(const AVFrame* source, AVFrame* destination)
{
    if (source == nullptr) {
        return false;
    }
    return Scale(source->data, source->linesize, source->width, source->height, source->format, destination);
}

bool FrameConverter::ConvertVideoFrame(const custom::AvFrame& source, AVFrame* destination)
{
    const uint8_t* planes[maxPlanes] = {};
    int strides[maxPlanes] = {};
    const std::size_t count = std::min<std::size_t>({source.data.size(), source.linesize.size(), maxPlanes});
    for (std::size_t i = 0; i < count; ++i) {
        planes[i] = source.data[i].data.data();
        strides[i] = source.linesize[i];
    }
    return Scale(planes, strides, static_cast<int>(source.width), static_cast<int>(source.height), source.format,
                 destination);
}

template <typename Source>
bool FrameConverter::ToQtImage(const Source& source, int width, int height, QImage& image)
{
    AVFrame* bgra = AllocAvFrame(width, height);
    if (bgra == nullptr) {
        LogError("Failed to allocate avFrame. Memory may be insufficient. Release memory and restart Orsa.");
        return false;
    }
    FrameConverter converter;
    const bool converted = converter.ConvertVideoFrame(source, bgra);
    if (converted) {
        const QImage wrapped(bgra->data[0], bgra->width, bgra->height, bgra->linesize[0], QImage::Format_RGBA8888);
        image = wrapped.rgbSwapped();
    } else {
        LogError("Failed to convert video frame.");
    }
    ExternAvFrameFree(&bgra);
    return converted;
}

bool FrameConverter::ConvertDataToQtImage(const AVFrame* source, QImage& image)
{
    if (source == nullptr) {
        LogError("Failed to convert video frame: Input frame is null.");
        return false;
    }
    return ToQtImage(source, source->width, source->height, image);
}

bool FrameConverter::ConvertDataToQtImage(const custom::AvFrame& source, QImage& image)
{
    return ToQtImage(source, source.width, source.height, image);
}

} // namespace rviz_plugin

#include "qsv_decoder.h"

#include "foundation/logger.h"
#include "frames/extern_ffmpeg.h"

extern "C" {
#include <libavutil/hwcontext_qsv.h>
}

namespace rviz_plugin {

namespace {
constexpr int surfaceAlignment = 32;
constexpr int initialPoolSize = 32;

int AlignUp(int value)
{
    return (value + surfaceAlignment - 1) / surfaceAlignment * surfaceAlignment;
}

enum AVPixelFormat GetFormat(AVCodecContext* context, const enum AVPixelFormat* formats)
{
    return static_cast<enum AVPixelFormat>(
        QsvDecoder::GetQsvHardwareFormat(context, reinterpret_cast<const int*>(formats)));
}
} // namespace

QsvDecoder::~QsvDecoder()
{
    ExternAvBufferUnref(&hwDeviceContext);
}

int QsvDecoder::GetHardwarePixelFormat() const
{
    return AV_PIX_FMT_QSV;
}

int QsvDecoder::InitializeCore()
{
    codec = ExternAvCodecFindDecoderByName("hevc_qsv");
    if (codec == nullptr) {
        return Fail("Could not find QSV decoder");
    }
    codecContext = ExternAvcodecAllocContext3(codec);
    if (codecContext == nullptr) {
        return Fail("Failed to initialize the decoder: AVCodecContext. Memory may be insufficient. Release memory "
                    "and restart Orsa.");
    }
    codecContext->codec_id = AV_CODEC_ID_HEVC;
    const int created = ExternAvHwdeviceCtxCreate(&hwDeviceContext, AV_HWDEVICE_TYPE_QSV, "auto", nullptr, 0);
    if (created < 0) {
        return Fail("Could not create QSV decoder context. Error code: " + GetErrorMessage(created));
    }
    codecContext->opaque = &hwDeviceContext;
    codecContext->get_format = GetFormat;
    codecContext->hw_device_ctx = ExternAvBufferRef(hwDeviceContext);
    codecContext->hw_frames_ctx = ExternAvHwframeCtxAlloc(hwDeviceContext);
    ExternAvDictSet(&options, "async_depth", "1", 0);
    return initSuccess;
}

int QsvDecoder::GetQsvHardwareFormat(AVCodecContext* context, const int* formats)
{
    const int* format = formats;
    while (*format != AV_PIX_FMT_NONE && *format != AV_PIX_FMT_QSV) {
        ++format;
    }
    if (*format != AV_PIX_FMT_QSV) {
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Warn,
                                             "Could not find pixel format for QSV decoder.");
        return AV_PIX_FMT_NONE;
    }
    auto* device = static_cast<AVBufferRef**>(context->opaque);
    ExternAvBufferUnref(&context->hw_frames_ctx);
    context->hw_frames_ctx = ExternAvHwframeCtxAlloc(*device);
    if (context->hw_frames_ctx == nullptr) {
        return AV_PIX_FMT_NONE;
    }
    auto* frames = reinterpret_cast<AVHWFramesContext*>(context->hw_frames_ctx->data);
    frames->format = AV_PIX_FMT_QSV;
    frames->sw_format = context->sw_pix_fmt;
    frames->width = AlignUp(context->coded_width);
    frames->height = AlignUp(context->coded_height);
    frames->initial_pool_size = initialPoolSize;
    static_cast<AVQSVFramesContext*>(frames->hwctx)->frame_type = MFX_MEMTYPE_VIDEO_MEMORY_DECODER_TARGET;
    if (ExternAvHwframeCtxInit(context->hw_frames_ctx) < 0) {
        return AV_PIX_FMT_NONE;
    }
    return AV_PIX_FMT_QSV;
}

} // namespace rviz_plugin

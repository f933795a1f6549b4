#include "nv_decoder.h"

#include "frames/extern_ffmpeg.h"

namespace rviz_plugin {

int NvDecoder::nvDecoderFormat = -1;

NvDecoder::~NvDecoder()
{
    ExternAvBufferUnref(&hwDeviceContext);
}

bool NvDecoder::HasFoundSuitableHwConfig(const AVCodecHWConfig* config) const
{
    if ((config->methods & AV_CODEC_HW_CONFIG_METHOD_HW_DEVICE_CTX) == 0 || config->device_type != hwDeviceType) {
        return false;
    }
    nvDecoderFormat = config->pix_fmt;
    return true;
}

enum AVPixelFormat NvDecoder::GetHardwareFormatForDecoderContext(AVCodecContext* /*context*/,
                                                                 const enum AVPixelFormat* formats)
{
    for (const enum AVPixelFormat* format = formats; *format != AV_PIX_FMT_NONE; ++format) {
        if (*format == nvDecoderFormat) {
            return *format;
        }
    }
    return AV_PIX_FMT_NONE;
}

int NvDecoder::InitializeCore()
{
    if (InitializeHevcDecoder() != initSuccess || InitializeHevcDecoderContext() != initSuccess) {
        return initFailure;
    }
    for (int index = 0;; ++index) {
        const AVCodecHWConfig* config = ExternAvcodecGetHwConfig(codec, index);
        if (config == nullptr) {
            return Fail("Failed to find the hardware configuration. Check whether libavcodec.so exists in the "
                        "rviz_plugin/lib/ folder of the Orsa.");
        }
        if (HasFoundSuitableHwConfig(config)) {
            break;
        }
    }
    codecContext->get_format = GetHardwareFormatForDecoderContext;
    const int created = ExternAvHwdeviceCtxCreate(&hwDeviceContext, hwDeviceType, nullptr, nullptr, 0);
    if (created < 0) {
        return Fail("Failed to initialize the decoder: HwDeviceCtx. FFmpeg error type: " + GetErrorMessage(created));
    }
    codecContext->hw_device_ctx = ExternAvBufferRef(hwDeviceContext);
    return initSuccess;
}

} // namespace rviz_plugin

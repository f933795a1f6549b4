#include "qsv_encoder.h"

#include "frames/extern_ffmpeg.h"

namespace rviz_plugin {

int QsvEncoder::FindEncodeCtx()
{
    codec = ExternAvcodecFindEncoderByName("hevc_qsv");
    if (codec == nullptr) {
        return Fail(FailureText("AVCodec for Intel not found"));
    }
    return initSuccess;
}

void QsvEncoder::SetPixelFormat()
{
    codecContext->pix_fmt = AV_PIX_FMT_QSV;
}

int QsvEncoder::CreateHwDevice()
{
    const int result = ExternAvHwdeviceCtxCreate(&hwDeviceContext, AV_HWDEVICE_TYPE_QSV, "auto", nullptr, 0);
    if (result < 0) {
        LogError("Failed to initialize the encoder: HwDeviceCtx for QSV. FFmpeg error type: " + std::to_string(result));
        return initFailure;
    }
    return initSuccess;
}

int QsvEncoder::GetPixelFormat() const
{
    return AV_PIX_FMT_P010LE;
}

} // namespace rviz_plugin

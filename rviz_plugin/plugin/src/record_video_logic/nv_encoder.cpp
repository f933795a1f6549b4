#include "nv_encoder.h"

#include "frames/extern_ffmpeg.h"

namespace rviz_plugin {

namespace {
constexpr int testWidth = 854;
constexpr int testHeight = 480;
} // namespace

bool NvEncoder::IsEncoderSupported()
{
    // Opening the codec is the test that the device can encode; no file is made.
    const bool supported = Initialize("nv_encoder_test.mp4", testWidth, testHeight) &&
                           ExternAvcodecOpen2(codecContext, codec, nullptr) >= 0;
    if (!supported) {
        LogError("The current running environment does not support the NVIDIA encoder.");
    }
    Release();
    return supported;
}

int NvEncoder::FindEncodeCtx()
{
    codec = ExternAvcodecFindEncoderByName("hevc_nvenc");
    if (codec == nullptr) {
        return Fail(FailureText("AVCodec for Nvidia not found"));
    }
    return initSuccess;
}

void NvEncoder::SetPixelFormat()
{
    codecContext->pix_fmt = AV_PIX_FMT_CUDA;
}

int NvEncoder::CreateHwDevice()
{
    const int result = ExternAvHwdeviceCtxCreate(&hwDeviceContext, AV_HWDEVICE_TYPE_CUDA, nullptr, nullptr, 0);
    if (result < 0) {
        LogError("Failed to initialize the encoder: HwDeviceCtx for CUDA. FFmpeg error type: " +
                 std::to_string(result));
        return initFailure;
    }
    return initSuccess;
}

int NvEncoder::GetPixelFormat() const
{
    return AV_PIX_FMT_YUV420P;
}

} // namespace rviz_plugin

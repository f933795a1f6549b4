#include "software_encoder.h"

#include "frames/extern_ffmpeg.h"

namespace rviz_plugin {

namespace {
// Real time before size: the encoder must keep pace with the recording clock on an ordinary PC.
const char* const softwarePreset = "veryfast";
} // namespace

int SoftwareEncoder::FindEncodeCtx()
{
    codec = ExternAvcodecFindEncoder(outputFormat->video_codec);
    if (codec == nullptr) {
        return Fail(FailureText("AVCodec not found"));
    }
    return initSuccess;
}

void SoftwareEncoder::SetPixelFormat()
{
    codecContext->pix_fmt = AV_PIX_FMT_YUV420P;
    if (codecContext->priv_data != nullptr) {
        ExternAvOptSet(codecContext->priv_data, "preset", softwarePreset, 0);
    }
}

void SoftwareEncoder::SetFrameFormat(AVFrame* frame)
{
    frame->format = AV_PIX_FMT_YUV420P;
}

int SoftwareEncoder::InitializeHwDevice(AVCodecContext* /*context*/)
{
    return initSuccess;
}

} // namespace rviz_plugin

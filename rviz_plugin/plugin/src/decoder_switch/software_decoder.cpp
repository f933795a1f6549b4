#include "software_decoder.h"

#include "frames/extern_ffmpeg.h"
#include "frames/yuv_texture_data.h"

namespace rviz_plugin {

int SoftwareDecoder::InitializeCore()
{
    if (InitializeHevcDecoder() != initSuccess || InitializeHevcDecoderContext() != initSuccess) {
        return initFailure;
    }
    codecContext->thread_count = threadCount;
    codecContext->thread_type = frameThreading ? FF_THREAD_FRAME : FF_THREAD_SLICE;
    ExternAvDictSet(&options, "preset", "ultrafast", 0);
    ExternAvDictSet(&options, "tune", "zero-latency", 0);
    return initSuccess;
}

int SoftwareDecoder::CopyFrameToMemory(std::shared_ptr<YuvTextureData>& /*frame*/)
{
    return decodedPicture;
}

AVFrame* SoftwareDecoder::GetFrameInDecoder(std::shared_ptr<YuvTextureData> target) const
{
    return target->GetAvFrame();
}

} // namespace rviz_plugin

#include "software_decoder.h"

#include "frames/extern_ffmpeg.h"
#include "frames/yuv_texture_data.h"

namespace rviz_plugin {

int SoftwareDecoder::InitializeCore()
{
    if (InitializeHevcDecoder() != initSuccess || InitializeHevcDecoderContext() != initSuccess) {
        return initFailure;
    }
    // One thread keeps no picture back and spends nothing on handing work between threads.
    codecContext->thread_count = frameThreading ? threadCount : 1;
    codecContext->thread_type = FF_THREAD_FRAME;
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

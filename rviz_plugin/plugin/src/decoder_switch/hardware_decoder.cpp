#include "hardware_decoder.h"

#include "frames/extern_ffmpeg.h"
#include "frames/yuv_texture_data.h"

namespace rviz_plugin {

HardwareDecoder::~HardwareDecoder()
{
    ExternAvFrameFree(&hardwareFrame);
}

int HardwareDecoder::InitializeStorage()
{
    if (Decoder::InitializeStorage() != initSuccess) {
        return initFailure;
    }
    hardwareFrame = ExternAvFrameAlloc();
    if (hardwareFrame == nullptr) {
        return Fail("Failed to initialize the decoder: AVFrame. Memory may be insufficient. Release memory and "
                    "restart Orsa.");
    }
    return initSuccess;
}

int HardwareDecoder::CopyFrameToMemory(std::shared_ptr<YuvTextureData>& target)
{
    if (hardwareFrame->format != GetHardwarePixelFormat()) {
        LogError("Failed to copy a frame from hardware surface into memory. The pixel format is not a hardware "
                 "pixel format.");
        return decodeError;
    }
    const int result = ExternAvHwframeTransferData(target->GetAvFrame(), hardwareFrame, 0);
    if (result < 0) {
        LogError("Failed to copy a frame from hardware surface into memory. FFmpeg error type: " +
                 GetErrorMessage(result));
        return decodeError;
    }
    return decodedPicture;
}

AVFrame* HardwareDecoder::GetFrameInDecoder(std::shared_ptr<YuvTextureData> /*frame*/) const
{
    return hardwareFrame;
}

} // namespace rviz_plugin

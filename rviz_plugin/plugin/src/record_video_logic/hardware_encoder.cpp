#include "hardware_encoder.h"

#include "frames/extern_ffmpeg.h"

extern "C" {
#include <libavutil/hwcontext.h>
}

namespace rviz_plugin {

namespace {
constexpr int framePoolSize = 20;
}

HardwareEncoder::~HardwareEncoder()
{
    HardwareEncoder::Release();
}

void HardwareEncoder::SetFrameFormat(AVFrame* frame)
{
    frame->format = GetPixelFormat();
}

int HardwareEncoder::InitializeHwDevice(AVCodecContext* context)
{
    if (CreateHwDevice() != initSuccess || SetHwFrameContext(context) != initSuccess) {
        Release();
        return initFailure;
    }
    return initSuccess;
}

int HardwareEncoder::SetHwFrameContext(AVCodecContext* context)
{
    AVBufferRef* frameReference = ExternAvHwframeCtxAlloc(hwDeviceContext);
    if (frameReference == nullptr) {
        LogError(FailureText("AVBufferRef"));
        return initFailure;
    }
    auto* frames = reinterpret_cast<AVHWFramesContext*>(frameReference->data);
    frames->format = context->pix_fmt;
    frames->sw_format = static_cast<AVPixelFormat>(GetPixelFormat());
    frames->width = width;
    frames->height = height;
    frames->initial_pool_size = framePoolSize;
    int result = initSuccess;
    if (ExternAvHwframeCtxInit(frameReference) < 0) {
        result = initFailure;
    } else {
        context->hw_frames_ctx = ExternAvBufferRef(frameReference);
        result = context->hw_frames_ctx == nullptr ? initFailure : initSuccess;
    }
    if (result != initSuccess) {
        LogError(FailureText("HwFrameContext"));
    }
    ExternAvBufferUnref(&frameReference);
    return result;
}

int HardwareEncoder::WriteFrame(AVFrame* frame)
{
    int result = CopyFrameToHwDevice(frame);
    if (result != -1) {
        result = Encoder::WriteFrame(hardwareFrame);
    }
    ClearFrame();
    return result;
}

int HardwareEncoder::CopyFrameToHwDevice(AVFrame* frame)
{
    if (frame == nullptr) {
        LogError("The input AVFrame is null.");
        return -1;
    }
    hardwareFrame = ExternAvFrameAlloc();
    if (hardwareFrame == nullptr) {
        LogError("Failed to allocate the HwFrame. Memory may be insufficient. Release memory and restart Orsa.");
        return -1;
    }
    const int buffer = ExternAvHwframeGetBuffer(codecContext->hw_frames_ctx, hardwareFrame, 0);
    if (buffer < 0) {
        LogError("Failed to set HwFrameCtx. FFmpeg error type: " + std::to_string(buffer) + userGuideHint);
        return -1;
    }
    const int transferred = ExternAvHwframeTransferData(hardwareFrame, frame, 0);
    if (transferred < 0) {
        LogError("Failed to transfer data to HwFrame. FFmpeg error type: " + std::to_string(transferred));
        return -1;
    }
    hardwareFrame->pts = frame->pts;
    return 0;
}

void HardwareEncoder::ClearFrame()
{
    ExternAvFrameFree(&hardwareFrame);
}

void HardwareEncoder::Release()
{
    ClearFrame();
    ExternAvBufferUnref(&hwDeviceContext);
    Encoder::Release();
}

} // namespace rviz_plugin

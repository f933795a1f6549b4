#ifndef RVIZ_PLUGIN_HARDWARE_ENCODER_H
#define RVIZ_PLUGIN_HARDWARE_ENCODER_H

#include "encoder.h"

struct AVBufferRef;

namespace rviz_plugin {

// Encodes on a device: each picture is converted in system memory, copied into a device frame and encoded there.
class HardwareEncoder : public Encoder {
public:
    ~HardwareEncoder() override;

protected:
    void SetPixelFormat() override = 0;
    void SetFrameFormat(AVFrame* frame) override;
    int InitializeHwDevice(AVCodecContext* context) override;
    int WriteFrame(AVFrame* frame) override;
    void Release() override;
    virtual int CreateHwDevice() = 0;
    // The format of the pictures in system memory that the device takes.
    virtual int GetPixelFormat() const = 0;

    AVBufferRef* hwDeviceContext = nullptr;
    AVFrame* hardwareFrame = nullptr;

private:
    int SetHwFrameContext(AVCodecContext* context);
    int CopyFrameToHwDevice(AVFrame* frame);
    void ClearFrame();
};

} // namespace rviz_plugin

#endif

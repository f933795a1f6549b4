#ifndef RVIZ_PLUGIN_NV_ENCODER_H
#define RVIZ_PLUGIN_NV_ENCODER_H

#include "hardware_encoder.h"

namespace rviz_plugin {

// H.265 on an NVIDIA device through CUDA.
class NvEncoder : public HardwareEncoder {
public:
    ~NvEncoder() override = default;

    // Sets the encoder up for a small picture and opens the codec, then releases it: whether it works here.
    bool IsEncoderSupported();

protected:
    int FindEncodeCtx() override;
    void SetPixelFormat() override;
    int CreateHwDevice() override;
    int GetPixelFormat() const override;
};

} // namespace rviz_plugin

#endif

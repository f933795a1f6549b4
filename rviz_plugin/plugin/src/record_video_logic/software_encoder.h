#ifndef RVIZ_PLUGIN_SOFTWARE_ENCODER_H
#define RVIZ_PLUGIN_SOFTWARE_ENCODER_H

#include "encoder.h"

namespace rviz_plugin {

// Encodes on the CPU with the default video encoder of the file's format (H.264 for MP4).
class SoftwareEncoder : public Encoder {
public:
    ~SoftwareEncoder() override = default;

protected:
    int FindEncodeCtx() override;
    void SetPixelFormat() override;
    void SetFrameFormat(AVFrame* frame) override;
    int InitializeHwDevice(AVCodecContext* context) override;
};

} // namespace rviz_plugin

#endif

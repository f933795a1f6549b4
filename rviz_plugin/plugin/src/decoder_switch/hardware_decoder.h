#ifndef RVIZ_PLUGIN_HARDWARE_DECODER_H
#define RVIZ_PLUGIN_HARDWARE_DECODER_H

#include "decoder.h"

namespace rviz_plugin {

// Decodes on a device into a frame that stays there, then copies the picture to system memory.
class HardwareDecoder : public Decoder {
public:
    ~HardwareDecoder() override;
    virtual int GetHardwarePixelFormat() const { return -1; }

protected:
    int InitializeStorage() override;
    int CopyFrameToMemory(std::shared_ptr<YuvTextureData>& frame) override;
    AVFrame* GetFrameInDecoder(std::shared_ptr<YuvTextureData> frame) const override;

    AVFrame* hardwareFrame = nullptr;
};

} // namespace rviz_plugin

#endif

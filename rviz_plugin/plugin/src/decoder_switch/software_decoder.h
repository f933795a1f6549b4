#ifndef RVIZ_PLUGIN_SOFTWARE_DECODER_H
#define RVIZ_PLUGIN_SOFTWARE_DECODER_H

#include "decoder.h"

namespace rviz_plugin {

// Decodes on the processor, straight into the frame that goes on to the renderer.
class SoftwareDecoder : public Decoder {
public:
    ~SoftwareDecoder() override = default;
    void SetThreadCount(int count) { threadCount = count; }
    // The thread count's frame threads instead of one thread: faster, but each extra thread holds a
    // picture back.
    void SetFrameThreading(bool frames) { frameThreading = frames; }

protected:
    int InitializeCore() override;
    int CopyFrameToMemory(std::shared_ptr<YuvTextureData>& frame) override;
    AVFrame* GetFrameInDecoder(std::shared_ptr<YuvTextureData> frame) const override;

private:
    int threadCount = 4;
    bool frameThreading = false;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_NV_DECODER_H
#define RVIZ_PLUGIN_NV_DECODER_H

#include "hardware_decoder.h"

extern "C" {
#include <libavutil/hwcontext.h>
}

struct AVBufferRef;
struct AVCodecHWConfig;

namespace rviz_plugin {

// NVIDIA decoding through a CUDA device context.
class NvDecoder : public HardwareDecoder {
public:
    ~NvDecoder() override;
    int GetHardwarePixelFormat() const override { return nvDecoderFormat; }
    void SetHwDeviceType(AVHWDeviceType type) { hwDeviceType = type; }

protected:
    int InitializeCore() override;

private:
    bool HasFoundSuitableHwConfig(const AVCodecHWConfig* config) const;
    static enum AVPixelFormat GetHardwareFormatForDecoderContext(AVCodecContext* context,
                                                                 const enum AVPixelFormat* formats);

    AVHWDeviceType hwDeviceType = AV_HWDEVICE_TYPE_CUDA;
    AVBufferRef* hwDeviceContext = nullptr;
    // The device picture format found in the codec's hardware configurations; shared by all NVIDIA decoders.
    static int nvDecoderFormat;
};

} // namespace rviz_plugin

#endif

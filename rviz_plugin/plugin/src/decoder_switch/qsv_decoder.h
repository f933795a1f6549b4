#ifndef RVIZ_PLUGIN_QSV_DECODER_H
#define RVIZ_PLUGIN_QSV_DECODER_H

#include "hardware_decoder.h"

struct AVBufferRef;

namespace rviz_plugin {

// Intel Quick Sync Video decoding ("hevc_qsv").
class QsvDecoder : public HardwareDecoder {
public:
    ~QsvDecoder() override;
    int GetHardwarePixelFormat() const override;

    // get_format callback of the codec context: sets up the device frames for the QSV format.
    static int GetQsvHardwareFormat(AVCodecContext* context, const int* formats);

protected:
    int InitializeCore() override;

private:
    AVBufferRef* hwDeviceContext = nullptr;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_QSV_ENCODER_H
#define RVIZ_PLUGIN_QSV_ENCODER_H

#include "hardware_encoder.h"

namespace rviz_plugin {

// H.265 on an Intel graphics device (Quick Sync Video).
class QsvEncoder : public HardwareEncoder {
public:
    ~QsvEncoder() override = default;

protected:
    int FindEncodeCtx() override;
    void SetPixelFormat() override;
    int CreateHwDevice() override;
    int GetPixelFormat() const override;
};

} // namespace rviz_plugin

#endif

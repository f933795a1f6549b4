#ifndef RVIZ_PLUGIN_FRAME_CONVERTER_H
#define RVIZ_PLUGIN_FRAME_CONVERTER_H

#ifndef Q_MOC_RUN
#include <custom/AvFrame.h>
#endif

#include <QImage>

struct AVFrame;

namespace rviz_plugin {

// Scaling between picture formats, without state: each call makes and frees its own scaler.
class FrameConverter {
public:
    // A BGRA frame with its buffer, or null.
    static AVFrame* AllocAvFrame(int width, int height);
    // Scales source into destination's size and format (point sampling); false when destination is
    // null or no scaler can be made.
    static bool ConvertVideoFrame(const AVFrame* source, AVFrame* destination);
    static bool ConvertVideoFrame(const custom::AvFrame& source, AVFrame* destination);
    // The picture as an RGBA image; false, with image untouched, on failure.
    static bool ConvertDataToQtImage(const AVFrame* source, QImage& image);
};

} // namespace rviz_plugin

#endif

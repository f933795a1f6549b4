#ifndef RVIZ_PLUGIN_FRAME_CONVERTER_H
#define RVIZ_PLUGIN_FRAME_CONVERTER_H

#ifndef Q_MOC_RUN
#include <custom/AvFrame.h>
#endif

#include <QImage>

struct AVFrame;
struct SwsContext;

namespace rviz_plugin {

// Scaling between picture formats. A converter keeps its scaler while the source and destination sizes and
// formats stay the same, so one converter per stream of pictures is cheap; it is used by one thread at a time.
class FrameConverter {
public:
    FrameConverter() = default;
    ~FrameConverter();
    FrameConverter(const FrameConverter&) = delete;
    FrameConverter& operator=(const FrameConverter&) = delete;

    // A BGRA frame with its buffer, or null.
    static AVFrame* AllocAvFrame(int width, int height);
    // Scales source into destination's size and format (point sampling); false when destination is
    // null or no scaler can be made.
    bool ConvertVideoFrame(const AVFrame* source, AVFrame* destination);
    bool ConvertVideoFrame(const custom::AvFrame& source, AVFrame* destination);
    // The picture as an RGBA image; false, with image untouched, on failure.
    static bool ConvertDataToQtImage(const AVFrame* source, QImage& image);
    static bool ConvertDataToQtImage(const custom::AvFrame& source, QImage& image);

private:
    template <typename Source>
    static bool ToQtImage(const Source& source, int width, int height, QImage& image);
    bool Scale(const uint8_t* const planes[], const int strides[], int width, int height, int format,
               AVFrame* destination);

    SwsContext* context = nullptr;
};

} // namespace rviz_plugin

#endif

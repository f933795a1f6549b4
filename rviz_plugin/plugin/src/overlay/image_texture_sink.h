#ifndef RVIZ_PLUGIN_IMAGE_TEXTURE_SINK_H
#define RVIZ_PLUGIN_IMAGE_TEXTURE_SINK_H

#include <memory>

namespace rviz_plugin {

class RgbaTextureData;
class YuvTextureData;

// Where the overlay node hands each picture and its canvas: the item's renderer.
class ImageTextureSink {
public:
    virtual ~ImageTextureSink() = default;
    // Called on the overlay thread. A null rgba means no overlay for this picture.
    virtual void UpdateImageTexture(const std::shared_ptr<YuvTextureData>& yuv,
                                    const std::shared_ptr<RgbaTextureData>& rgba) = 0;
};

} // namespace rviz_plugin

#endif

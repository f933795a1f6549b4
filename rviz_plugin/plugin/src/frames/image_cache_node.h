#ifndef RVIZ_PLUGIN_IMAGE_CACHE_NODE_H
#define RVIZ_PLUGIN_IMAGE_CACHE_NODE_H

#include <memory>

namespace rviz_plugin {

class YuvTextureData;

// What a video decoder hands its pictures to: the overlay node of a video item.
class ImageCacheNode {
public:
    virtual ~ImageCacheNode() = default;
    // Called on the decoding thread for every decoded picture.
    virtual void SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame) = 0;
    virtual int GetIppNodeNo() const = 0;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_IMAGE_CACHE_NODE_H
#define RVIZ_PLUGIN_IMAGE_CACHE_NODE_H

#include <QString>

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
    // The node's picture and overlay go out for the recorders on the topic's frame array: the shared name for
    // the first node of a topic, a name with the node's number when asOwnNode.
    virtual void RegisterFrameArrayNode(const QString& topic, bool asOwnNode) = 0;
};

} // namespace rviz_plugin

#endif

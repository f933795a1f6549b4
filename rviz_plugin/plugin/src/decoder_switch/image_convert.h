#ifndef RVIZ_PLUGIN_IMAGE_CONVERT_H
#define RVIZ_PLUGIN_IMAGE_CONVERT_H

#include "frames/image_cache_node.h"
#include "frames/texture_data.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace rviz_plugin {

class YuvTextureData;

// What a video item's renderer does with decoded pictures, without a window: the decoding
// evaluation feeds it in place of a display. Pictures queue (at most 30; a picture older than the
// newest queued clears the queue); a thread hands the oldest on as the pending picture, which is
// dropped while the previous one waits; UpdateImage converts the pending picture to BGR as the
// renderer would before an upload.
class ImageConvert : public ImageCacheNode {
public:
    static constexpr std::size_t queueLimit = 30;

    ImageConvert() = default;
    ~ImageConvert() override;
    ImageConvert(const ImageConvert&) = delete;
    ImageConvert& operator=(const ImageConvert&) = delete;

    bool Initialize();
    void Stop();
    void SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame) override;
    int GetIppNodeNo() const override { return -1; }
    // The evaluation's pictures are not recorded.
    void RegisterFrameArrayNode(const QString& /*topic*/, bool /*asOwnNode*/) override {}
    // Converts the pending picture; false when none was pending or it could not be converted.
    bool UpdateImage();
    std::size_t GetQueueSize();

private:
    void ProcessImage();

    std::deque<std::shared_ptr<YuvTextureData>> queue;
    std::mutex queueMutex;
    std::condition_variable queueCondition;
    bool running = false;
    std::thread thread;

    std::mutex imageMutex;
    std::shared_ptr<YuvTextureData> pending;
    TransformCore core;
    std::vector<uint8_t> buffer;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_IPP_NODE_H
#define RVIZ_PLUGIN_IPP_NODE_H

#include "ipp_parameters.h"

#include "decoder_switch/image_cache_node.h"

#include <QObject>
#include <QString>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

namespace rviz_plugin {

class ImageRender;
class YuvTextureData;

// The overlay node of one video item: queues decoded pictures and, on its own thread, hands each
// to the renderer. It waits on a condition variable while nothing is queued.
class IppNode : public QObject, public ImageCacheNode {
    Q_OBJECT
public:
    IppNode(const std::unique_ptr<IppParameters>& parameters, const std::unique_ptr<ImageRender>& imageRender);
    ~IppNode() override;

    void Initialize();
    void SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame) override;
    int GetIppNodeNo() const override { return ippNodeNo; }
    void RefreshConfig();
    std::size_t GetImageQueueSize();

public Q_SLOTS:
    void EnableDisplay();
    void DisableDisplay();

Q_SIGNALS:
    void MessageReceived(rviz_plugin::MessageId id);
    void DetectedQueueFull();
    void DetectedDataSend();
    void ImageQueueStatusChanged(rviz::StatusProperty::Level level, const QString& key, const QString& text);

private:
    void ProcessImage();
    void TakeConfigIfChanged();

    static std::atomic<int> ippCounter;
    int ippNodeNo;
    const std::unique_ptr<IppParameters>& parameters;
    const std::unique_ptr<ImageRender>& imageRender;
    std::deque<std::shared_ptr<YuvTextureData>> imageQueue;
    std::mutex mutex;
    std::condition_variable condition;
    bool running = false;
    bool stopRequested = false;
    std::thread thread;
    IppConfig config;
    std::atomic<bool> displayEnabled{true};
};

} // namespace rviz_plugin

#endif

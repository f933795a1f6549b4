#ifndef RVIZ_PLUGIN_VISION_DATA_HANDLER_H
#define RVIZ_PLUGIN_VISION_DATA_HANDLER_H

#include "data_recorder_base.h"
#include "ffmpeg_filter.h"

#ifndef Q_MOC_RUN
#include <custom/AvFrameArray.h>
#include <ros/callback_queue.h>
#include <ros/ros.h>
#include <ros/spinner.h>
#endif

#include <atomic>
#include <memory>
#include <mutex>

namespace rviz_plugin {

// Records a camera's "<topic>_frameArray": the picture with its overlay laid over it. Each beat encodes the
// newest message (older ones not yet encoded are dropped, the timeline is kept); after about a second without
// a message the beats encode the "no image" picture.
class VisionDataHandler : public DataRecorderBase {
    Q_OBJECT

public:
    explicit VisionDataHandler(QObject* parent = nullptr);
    ~VisionDataHandler() override;

    std::pair<int, int> GetDataResolution() override;
    QImage GetPreviewImage() override;
    bool GetIsPreviewImageReady() const override { return isPreviewImageReady; }

    // The camera part of the file name: the topic without "_frameArray", with its custom name, for a file
    // name, and "_" at the end.
    static std::string GetExportTopicName(const std::string& topic);
    void RecvFrameArrayMsg(const boost::shared_ptr<const custom::AvFrameArray>& msg);

    static constexpr int noFrameLimit = 30;
    static constexpr int subscribeQueueSize = 30;

protected:
    void OnTimeout() override;
    void Recording() override;
    bool Start() override;
    void StartSubscriber() override;
    void ShutDownSubscriber() override;

private:
    bool EncodeFrame(bool useEmptyFrame);
    bool ResetFilter(int width, int height);
    void ConvertImage();
    boost::shared_ptr<const custom::AvFrameArray> NewestMessage();
    std::string GetTimeStamp();
    void InitEmptyFrame();
    static bool IsNeedOverlayFrame(const custom::AvFrame& overlay);
    static bool IsMsgReady(const boost::shared_ptr<const custom::AvFrameArray>& msg);

    ros::CallbackQueue callbackQueue;
    std::unique_ptr<ros::NodeHandle> nodeHandle;
    std::unique_ptr<ros::AsyncSpinner> spinner;
    ros::Subscriber subscriber;
    std::atomic<int> queuedTicks{0};
    std::atomic<int> ticksWithoutFrame{0};
    std::atomic<bool> isPreviewImageReady{false};
    std::mutex messageMutex;
    boost::shared_ptr<const custom::AvFrameArray> newestMessage;
    // The message whose overlaid picture the filter holds: a beat without a newer message encodes it again.
    boost::shared_ptr<const custom::AvFrameArray> overlaidMessage;
    std::mutex previewMutex;
    QImage previewImage;
    custom::AvFrame emptyFrame;
    FfmpegFilter filter;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_VIDEO_DECODER_H
#define RVIZ_PLUGIN_VIDEO_DECODER_H

#include "frames/custom_av_frame_data.h"
#include "decode_threading.h"
#include "decoder.h"
#include "video_frame_rules.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QTimer>

#ifndef Q_MOC_RUN
#include <custom/DecoderInfo.h>
#include <custom/Video.h>
#include <ros/callback_queue_interface.h>
#include <ros/ros.h>
#include <rviz/properties/status_property.h>
#include <sensor_msgs/CameraInfo.h>
#include <std_msgs/Header.h>
#endif

#include <condition_variable>
#include <deque>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

namespace rviz {
class DisplayContext;
}

namespace rviz_plugin {

class ImageCacheNode;
class YuvTextureData;


// One per video topic in the process: subscribes the topic, queues encoded frames (at most 30, cut
// back to a key frame on overflow), decodes them on its own thread and hands each picture to the
// attached overlay nodes.
class VideoDecoder : public QObject {
    Q_OBJECT
public:
    VideoDecoder();
    ~VideoDecoder() override;

    void Initialize(const QString& topic, rviz::DisplayContext* context, int selectionMode);
    // Same, with the callback queue that the subscription is served on.
    void Initialize(const QString& topic, ros::CallbackQueueInterface* callbackQueue, int selectionMode);
    void Subscribe();
    void Unsubscribe();
    void AddQueueSizeRecord(int size);
    void RemoveQueueSizeRecord(int size);
    int GetMaxQueueSizeFromRecord() const;
    void AddIppNode(ImageCacheNode* node);
    // When the software decoder changes between one thread and frame threads; before the first unit.
    void SetDecodeThreadingSettings(const DecodeThreading::Settings& settings) { threading = DecodeThreading(settings); }
    void RemoveIppNode(unsigned nodeNumber);
    void UpdateDecoderSelection();
    void UpdateDecoderStatus();
    void ResetDecoderInfoStatus();
    int GetDecoderType() const { return decoderType; }
    int GetResultCode() const { return decoderInfo.resultCode; }
    bool IsRunning();
    bool IsSubscribed() const { return isSubscribed; }
    uint32_t GetReceivedFrameCount() const { return receivedFrameCount; }

    // Entry of the subscription; public so that tests and tools can feed frames directly.
    void RecvVideoMsg(const VideoMessagePtr& msg);

    // A decoder of a selection mode (0 software, 1 Intel, 2 NVIDIA), not yet initialised; type is
    // its decoder type (1, 2, 3).
    static std::unique_ptr<Decoder> MakeDecoder(int mode, int& type);
    // A software decoder, not yet initialised, on frame threads or on one thread.
    static std::unique_ptr<Decoder> MakeSoftwareDecoder(bool frameThreads);
    // Threads of a software decoder.
    static constexpr int softwareThreadCount = 4;
    static const QMap<int, QString>& StatusTexts();
    static const QMap<int, rviz::StatusProperty::Level>& StatusLevels();

Q_SIGNALS:
    void SetStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text);
    void DeleteStatus(const QString& name);
    void ChangeDecoderSelectionByDecoder(int mode);
    void SendCameraInfoMsg(const boost::shared_ptr<const sensor_msgs::CameraInfo>& info);

public Q_SLOTS:
    void OnUpdateCameraDecoder(int mode);
    void OnSendDecoderInformation();
    void CheckIfRecvFrameInSecond();

private:
    int GetDecodingState(const VideoMessagePtr& msg);
    void ResetVideoDecoder();
    void ProcessVideoMsg();
    void DecodeFrame(const VideoMessagePtr& msg, const std_msgs::Header& receivedHeader, std::size_t waiting);
    // Hands a picture on with the oldest header of the units still in the decoder.
    void DeliverPicture(const std::shared_ptr<YuvTextureData>& frame);
    // A software decoder with the threads DecodeThreading asks for, after the pictures of the old one.
    void SwitchSoftwareThreading();
    void SendImage(const std::shared_ptr<YuvTextureData>& frame);
    int InitializeDecoder();
    int CreateDecoder(std::unique_ptr<Decoder> created, int type);
    void StartThread();
    void StopThread();
    void RecvCameraInfoMsg(const sensor_msgs::CameraInfo::ConstPtr& info);

    const unsigned threadStartDelay = 2000;
    const int defaultQueueSize = 5;
    const int avFrameQueueSize = 10;
    const int decoderInfoQueueSize = 30;
    static constexpr std::size_t maxVideoQueueLength = 30;

    bool isRunning = false;
    bool waitingForKeyFrame = true;
    std::unique_ptr<Decoder> decoder;
    DecodeThreading threading;
    std::deque<VideoMessagePtr> videoQueue;
    std::condition_variable queueCondition;
    std::mutex queueMutex;
    std::thread thread;
    ros::NodeHandle nodeHandle;
    ros::Subscriber videoSubscriber;
    ros::Publisher decoderInfoPublisher;
    ros::Subscriber cameraInfoSubscriber;
    ros::Publisher avFramePublisher;
    QString topic;
    std::list<int> queueSizeRecords;
    int subscribedQueueSize = 0;
    std::deque<std_msgs::Header> headerQueue;
    std::deque<std_msgs::Header> receivedTimeQueue;
    QTimer receiveTimer;
    std::atomic<uint32_t> receivedFrameCount{0};
    uint32_t lastReceivedFrameCount = 0;
    bool isSubscribed = false;
    bool isAvFramePublisherReady = false;
    std::mutex publisherMutex;
    std::mutex ippNodeMutex;
    std::map<unsigned, ImageCacheNode*> ippNodes;
    int selectionMode = custom::DecoderInfo::SOFTWARE_DECODING_MODE;
    int decoderType = custom::DecoderInfo::SOFTWARE_DECODER;
    // Cleared by an inquiry of the decoder switch: the result goes out once per inquiry, never unasked.
    bool isDecoderInfoSent = true;
    custom::DecoderInfo decoderInfo;
    std::mutex decoderMutex;
    std::shared_ptr<CustomAvFrameData> customAvFrameData;
};

} // namespace rviz_plugin

#endif

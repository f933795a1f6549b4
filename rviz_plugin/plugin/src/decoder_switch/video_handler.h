#ifndef RVIZ_PLUGIN_VIDEO_HANDLER_H
#define RVIZ_PLUGIN_VIDEO_HANDLER_H

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

#ifndef Q_MOC_RUN
#include <custom/DecoderInfo.h>
#include <ros/ros.h>
#include <rviz/properties/status_property.h>
#include <sensor_msgs/CameraInfo.h>
#endif

#include <memory>
#include <mutex>

namespace rviz {
class DisplayContext;
}

namespace rviz_plugin {

class ImageCacheNode;
class VideoDecoder;

// Attaches one video item's overlay node to the decoder of the topic it shows. Decoders are shared
// by all items of the process: one per topic, counted by the items that refer to it (ref) and that
// are subscribed (sub).
class VideoHandler : public QObject {
    Q_OBJECT
public:
    VideoHandler(ImageCacheNode& node, rviz::DisplayContext* context);
    ~VideoHandler() override;

    void Initialize();
    const QString& GetTopic() const { return topic; }

    // The topic a decoder subscribes for a chosen topic: the text behind its last "/".
    static QString GetRealTopic(const QString& topic);
    static int GetDecoderCount();
    // The real topics that have a decoder, in order.
    static QStringList GetDecoderTopics();
    static VideoDecoder* FindDecoder(const QString& realTopic);

Q_SIGNALS:
    void RequestDisplayReset();
    void RequestDisplayRenderContext();
    void ChangeTopicName(const QString& name);
    void SetStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text);
    void DeleteStatus(const QString& name);
    void ChangeDecoderSelectionInternal(int mode);
    void UpdateCameraDecoder(int mode);
    void SendDecoderInformation();
    void UpdateCameraInfo(const boost::shared_ptr<const sensor_msgs::CameraInfo>& info);

public Q_SLOTS:
    void OnSubscribe(const QString& topic, int queueSize);
    void OnUnsubscribe();
    void OnSendDecoderSelectionMode(int mode);
    void OnSendDecoderInformation();
    void OnSetStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text);
    void OnDeleteStatus(const QString& name);
    void OnChangeDecoderSelectionByDecoder(int mode);
    void OnSendCameraInfoMsg(const boost::shared_ptr<const sensor_msgs::CameraInfo>& info);

private:
    void ConnectSlots(VideoDecoder* decoder);
    void DisconnectSlots(VideoDecoder* decoder);
    void InstantiationNewDecoder(const QString& realTopic);
    void RefreshSubscription(VideoDecoder* decoder);
    void SendDecoderNumberInfo(const custom::DecoderInfo::ConstPtr& msg);
    static void DecreaseDecoderRefNumber(const QString& realTopic);
    static void DecreaseDecoderSubNumber(const QString& realTopic);

    ImageCacheNode& ippNode;
    QString topic;
    rviz::DisplayContext* context;
    int selectionMode = custom::DecoderInfo::SOFTWARE_DECODING_MODE;
    int queueSize = 0;
    // Whether this item counts among the subscribers of its topic's decoder.
    bool subscribed = false;
    ros::NodeHandle nodeHandle;
    ros::Subscriber inquireSubscriber;
    ros::Publisher decoderNumberPublisher;

    static QMap<QString, std::shared_ptr<VideoDecoder>> decoders;
    static QMap<QString, int> decoderRefNums;
    static QMap<QString, int> decoderSubNums;
    static std::recursive_mutex decoderMapMutex;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_IPP_NODE_H
#define RVIZ_PLUGIN_IPP_NODE_H

#include "canvas_pool.h"
#include "image_freespace_utils.h"
#include "image_line_utils.h"
#include "image_object_utils.h"
#include "image_rectangle_utils.h"
#include "image_semantic_segmentation_utils.h"
#include "image_texture_sink.h"
#include "ipp_parameters.h"
#include "marker_array_utils.h"
#include "message_queue.h"

#include "frames/custom_frame_array_data.h"
#include "frames/image_cache_node.h"

#include <QObject>
#include <QString>

#ifndef Q_MOC_RUN
#include <ros/duration.h>
#include <rviz/properties/status_property.h>
#include <sensor_msgs/Image.h>
#endif

#include <atomic>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

namespace rviz_plugin {

class RgbaTextureData;
class YuvTextureData;

// The overlay node of one video item. It queues decoded pictures and perception messages, picks
// sets whose stamps lie within 10 ms of each other, draws the perception data on a transparent
// canvas on its own thread and hands picture and canvas to the renderer.
class IppNode : public QObject, public ImageCacheNode {
    Q_OBJECT
public:
    // imageRender receives every picture; it must outlive the node.
    IppNode(const std::unique_ptr<IppParameters>& parameters, ImageTextureSink* imageRender);
    ~IppNode() override;

    void Initialize();
    void SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame) override;
    int GetIppNodeNo() const override { return ippNodeNo; }
    void RegisterFrameArrayNode(const QString& topic, bool asOwnNode) override;
    void RefreshConfig();
    std::map<MessageId, std::size_t> GetQueueSizes();

    const ImageUtils::ImageObjectUtils* GetImageObjectUtilsPtr() const { return &imageObjectUtils; }
    const ImageUtils::ImageRectangleUtils* GetImageRectangleUtilsPtr() const { return &imageRectangleUtils; }
    const ImageUtils::ImageLineUtils* GetImageLineUtilsPtr() const { return &imageLineUtils; }
    const ImageUtils::ImageFreespaceUtils* GetImageFreespaceUtilsPtr() const { return &imageFreespaceUtils; }
    const ImageUtils::ImageSemanticSegmentationUtils* GetImageSemanticSegmentationUtils() const
    {
        return &imageSemanticSegmentationUtils;
    }
    const ImageUtils::MarkerArrayUtils* GetMarkerArrayUtilsPtr() const { return &markerArrayUtils; }

public Q_SLOTS:
    void OnSendObjectArray(const boost::shared_ptr<const custom::ObjectArray>& message);
    void OnSendImgRectArray(const boost::shared_ptr<const custom::ImageRectangleArray>& message);
    void OnSendImgLineArray(const boost::shared_ptr<const custom::ImageLineArray>& message);
    void OnSendImgFreespace(const boost::shared_ptr<const orsa_msgs::ImageFreespace>& message);
    void OnSendSemanticSegmentation(const boost::shared_ptr<const orsa_msgs::SemanticSegmentation>& message);
    void OnSendMarkerArray(const boost::shared_ptr<const visualization_msgs::MarkerArray>& message);
    void OnClearQueue(rviz_plugin::MessageId id);
    void EnableDisplay();
    void DisableDisplay();

Q_SIGNALS:
    void MessageReceived(rviz_plugin::MessageId id);
    void DetectedSingleFrameProcessingTime(float milliseconds);
    void DetectedQueueFull();
    void DetectedDiscardPerceptionData() const;
    void DetectedDiscardImageData() const;
    void DetectedDataSend();
    void DetectedQueueEmpty();
    void ImageQueueStatusChanged(rviz::StatusProperty::Level level, const QString& key, const QString& text);
    void ObjectArrayQueueStatusChanged(rviz::StatusProperty::Level level, const QString& key, const QString& text);
    void ImageRectangleArrayQueueStatusChanged(rviz::StatusProperty::Level level, const QString& key,
                                               const QString& text);
    void ImageLineArrayQueueStatusChanged(rviz::StatusProperty::Level level, const QString& key, const QString& text);
    void ImageFreespaceQueueStatusChanged(rviz::StatusProperty::Level level, const QString& key, const QString& text);
    void SemanticSegmentationQueueStatusChanged(rviz::StatusProperty::Level level, const QString& key,
                                                const QString& text);
    void MarkerArrayQueueStatusChanged(rviz::StatusProperty::Level level, const QString& key, const QString& text);

private:
    template <typename T>
    void SaveMessage(MessageId id, SpecificMessageQueue<T>& queue, const T& element);
    void EmitQueueStatus(MessageId id, rviz::StatusProperty::Level level, const QString& text);
    void ProcessImage();
    void ProcessFrame(const std::shared_ptr<YuvTextureData>& image);
    void TakeConfigIfChanged();
    bool IsExistEnabledMsgEmpty() const;
    bool IsTimestampAligned();
    void DiscardOldMessages(const ros::Time& newest);
    void GetEnabledMessage();
    bool IsPerceptionDataExisted() const;
    boost::shared_ptr<sensor_msgs::Image> GeneratePerceptionImage(const YuvTextureData& image);
    void DrawToImage(sensor_msgs::Image& sensorImage);
    void LogProcessingFailure(const std::string& text);

    static std::atomic<int> ippCounter;
    int ippNodeNo;
    const std::unique_ptr<IppParameters>& parameters;
    ImageTextureSink* imageRender;
    std::map<MessageId, std::shared_ptr<MessageQueue>> queues;
    std::shared_ptr<SpecificMessageQueue<std::shared_ptr<YuvTextureData>>> imageQueue;
    std::shared_ptr<SpecificMessageQueue<boost::shared_ptr<const custom::ObjectArray>>> objectArrayQueue;
    std::shared_ptr<SpecificMessageQueue<boost::shared_ptr<const custom::ImageRectangleArray>>> imageRectangleQueue;
    std::shared_ptr<SpecificMessageQueue<boost::shared_ptr<const custom::ImageLineArray>>> imageLineQueue;
    std::shared_ptr<SpecificMessageQueue<boost::shared_ptr<const orsa_msgs::ImageFreespace>>> imageFreespaceQueue;
    std::shared_ptr<SpecificMessageQueue<boost::shared_ptr<const orsa_msgs::SemanticSegmentation>>>
        semanticSegmentationQueue;
    std::shared_ptr<SpecificMessageQueue<std::shared_ptr<MarkerArrayStamped>>> markerArrayQueue;
    // Stamps are compared in integer nanoseconds: "within 10 ms" is exact at any stamp value.
    const ros::Duration timestampTolerance{0, 10000000};
    std::mutex mutex;
    std::condition_variable condition;
    bool running = false;
    bool stopRequested = false;
    // Counts every change of the queues; a round that found no match waits until it moves.
    uint64_t queueGeneration = 0;
    std::thread thread;
    IppConfig config;
    CanvasPool canvasPool;
    CustomFrameArrayData customFrameArrayData;
    ImageUtils::ImageObjectUtils imageObjectUtils;
    ImageUtils::ImageRectangleUtils imageRectangleUtils;
    ImageUtils::ImageLineUtils imageLineUtils;
    ImageUtils::ImageFreespaceUtils imageFreespaceUtils;
    ImageUtils::ImageSemanticSegmentationUtils imageSemanticSegmentationUtils;
    ImageUtils::MarkerArrayUtils markerArrayUtils;
    boost::shared_ptr<const custom::ObjectArray> objectArray;
    boost::shared_ptr<const custom::ImageRectangleArray> imageRectangleArray;
    boost::shared_ptr<const custom::ImageLineArray> imageLineArray;
    boost::shared_ptr<const orsa_msgs::ImageFreespace> imageFreespace;
    boost::shared_ptr<const orsa_msgs::SemanticSegmentation> semanticSegmentation;
    std::shared_ptr<MarkerArrayStamped> markerArray;
    std::atomic<bool> displayEnabled{true};
    std::string lastFailure;
};

} // namespace rviz_plugin

#endif

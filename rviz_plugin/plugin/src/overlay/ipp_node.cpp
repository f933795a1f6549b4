#include "ipp_node.h"

#include "foundation/logger.h"
#include "frames/rgba_texture_data.h"
#include "frames/yuv_texture_data.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <algorithm>
#include <chrono>
#include <limits>
#include <system_error>

namespace rviz_plugin {

namespace {
const char* const failurePrefix = "An unexpected exception occurs during service processing. Check whether the data "
                                  "is correct.";
constexpr MessageId perceptionIds[] = {Objects, TrafficLights, RoadLines, Freespace, SemanticSegmentation,
                                       MarkerArray};

bool IsFrameIdMatch(const std::string& imageFrameId, const std::string& messageFrameId)
{
    return imageFrameId.empty() || messageFrameId.empty() || imageFrameId == messageFrameId;
}
} // namespace

std::atomic<int> IppNode::ippCounter{0};

IppNode::IppNode(const std::unique_ptr<IppParameters>& params, ImageTextureSink* render)
    : ippNodeNo(ippCounter), parameters(params), imageRender(render)
{
}

IppNode::~IppNode()
{
    {
        std::lock_guard<std::mutex> lock(mutex);
        running = false;
        stopRequested = true;
    }
    condition.notify_all();
    if (thread.joinable()) {
        thread.join();
    }
}

void IppNode::Initialize()
{
    ++ippCounter;
    {
        std::lock_guard<std::mutex> lock(mutex);
        running = true;
        imageQueue = std::make_shared<SpecificMessageQueue<std::shared_ptr<YuvTextureData>>>();
        objectArrayQueue = std::make_shared<SpecificMessageQueue<boost::shared_ptr<const custom::ObjectArray>>>();
        imageRectangleQueue =
            std::make_shared<SpecificMessageQueue<boost::shared_ptr<const custom::ImageRectangleArray>>>();
        imageLineQueue = std::make_shared<SpecificMessageQueue<boost::shared_ptr<const custom::ImageLineArray>>>();
        imageFreespaceQueue =
            std::make_shared<SpecificMessageQueue<boost::shared_ptr<const orsa_msgs::ImageFreespace>>>();
        semanticSegmentationQueue =
            std::make_shared<SpecificMessageQueue<boost::shared_ptr<const orsa_msgs::SemanticSegmentation>>>();
        markerArrayQueue = std::make_shared<SpecificMessageQueue<std::shared_ptr<MarkerArrayStamped>>>();
        queues = {{Image, imageQueue},
                  {Objects, objectArrayQueue},
                  {TrafficLights, imageRectangleQueue},
                  {RoadLines, imageLineQueue},
                  {Freespace, imageFreespaceQueue},
                  {SemanticSegmentation, semanticSegmentationQueue},
                  {MarkerArray, markerArrayQueue}};
    }
    customFrameArrayData.Initialize();
    RefreshConfig();
    try {
        thread = std::thread(&IppNode::ProcessImage, this);
    } catch (const std::system_error&) {
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error,
                                             "Fail to create a new thread for IppNode. Release memory and restart "
                                             "Orsa.");
    }
}

void IppNode::RefreshConfig()
{
    if (parameters == nullptr) {
        return;
    }
    {
        std::lock_guard<std::mutex> lock(mutex);
        TakeConfigIfChanged();
        ++queueGeneration;
    }
    condition.notify_one();
}

void IppNode::TakeConfigIfChanged()
{
    std::lock_guard<std::mutex> parametersLock(parameters->mutex);
    if (parameters->configChanged) {
        config = parameters->config;
        parameters->configChanged = false;
    }
}

std::map<MessageId, std::size_t> IppNode::GetQueueSizes()
{
    std::lock_guard<std::mutex> lock(mutex);
    std::map<MessageId, std::size_t> sizes;
    for (const auto& entry : queues) {
        sizes[entry.first] = entry.second->Size();
    }
    return sizes;
}

void IppNode::EnableDisplay()
{
    displayEnabled = true;
}

void IppNode::DisableDisplay()
{
    displayEnabled = false;
    std::lock_guard<std::mutex> lock(mutex);
    imageQueue->Clear();
    ++queueGeneration;
}

void IppNode::OnClearQueue(MessageId id)
{
    {
        std::lock_guard<std::mutex> lock(mutex);
        const auto found = queues.find(id);
        if (found == queues.end()) {
            return;
        }
        found->second->Clear();
        ++queueGeneration;
    }
    condition.notify_one();
}

void IppNode::EmitQueueStatus(MessageId id, rviz::StatusProperty::Level level, const QString& text)
{
    const QString key = "Queue Status";
    switch (id) {
    case Image:
        Q_EMIT ImageQueueStatusChanged(level, key, text);
        break;
    case Objects:
        Q_EMIT ObjectArrayQueueStatusChanged(level, key, text);
        break;
    case TrafficLights:
        Q_EMIT ImageRectangleArrayQueueStatusChanged(level, key, text);
        break;
    case RoadLines:
        Q_EMIT ImageLineArrayQueueStatusChanged(level, key, text);
        break;
    case Freespace:
        Q_EMIT ImageFreespaceQueueStatusChanged(level, key, text);
        break;
    case SemanticSegmentation:
        Q_EMIT SemanticSegmentationQueueStatusChanged(level, key, text);
        break;
    case MarkerArray:
        Q_EMIT MarkerArrayQueueStatusChanged(level, key, text);
        break;
    }
}

template <typename T>
void IppNode::SaveMessage(MessageId id, SpecificMessageQueue<T>& queue, const T& element)
{
    unsigned limit = 0;
    std::size_t size = 0;
    bool enabledInputEmpty = false;
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (id == Image ? !displayEnabled : !running) {
            if (id == Image && !queue.Empty()) {
                queue.Clear();
            }
            return;
        }
        limit = config.queueSize;
        std::deque<T>& elements = queue.GetQueue();
        // A stream that jumped back in time (a restarted bag) starts its queue anew.
        if (!elements.empty() && StampOf(elements.back()) > StampOf(element)) {
            queue.Clear();
        }
        if (!elements.empty() && elements.size() >= limit) {
            elements.pop_front();
        }
        elements.push_back(element);
        size = elements.size();
        enabledInputEmpty = IsExistEnabledMsgEmpty();
        ++queueGeneration;
    }
    Q_EMIT MessageReceived(id);
    if (limit > size) {
        EmitQueueStatus(id, rviz::StatusProperty::Ok, "Queue is normal.");
    } else {
        Q_EMIT DetectedQueueFull();
        if (enabledInputEmpty) {
            Q_EMIT DetectedQueueEmpty();
        }
        EmitQueueStatus(id, rviz::StatusProperty::Warn, "Queue full.");
    }
    condition.notify_one();
}

void IppNode::SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame)
{
    if (frame != nullptr && imageQueue != nullptr) {
        SaveMessage(Image, *imageQueue, frame);
    }
}

void IppNode::OnSendObjectArray(const boost::shared_ptr<const custom::ObjectArray>& message)
{
    SaveMessage(Objects, *objectArrayQueue, message);
}

void IppNode::OnSendImgRectArray(const boost::shared_ptr<const custom::ImageRectangleArray>& message)
{
    SaveMessage(TrafficLights, *imageRectangleQueue, message);
}

void IppNode::OnSendImgLineArray(const boost::shared_ptr<const custom::ImageLineArray>& message)
{
    SaveMessage(RoadLines, *imageLineQueue, message);
}

void IppNode::OnSendImgFreespace(const boost::shared_ptr<const orsa_msgs::ImageFreespace>& message)
{
    SaveMessage(Freespace, *imageFreespaceQueue, message);
}

void IppNode::OnSendSemanticSegmentation(const boost::shared_ptr<const orsa_msgs::SemanticSegmentation>& message)
{
    SaveMessage(SemanticSegmentation, *semanticSegmentationQueue, message);
}

void IppNode::OnSendMarkerArray(const boost::shared_ptr<const visualization_msgs::MarkerArray>& message)
{
    // A marker array has no header of its own: it takes its first marker's. An empty one has none.
    if (message == nullptr || message->markers.empty()) {
        return;
    }
    auto stamped = std::make_shared<MarkerArrayStamped>();
    stamped->header = message->markers.front().header;
    stamped->markerArray = message;
    SaveMessage(MarkerArray, *markerArrayQueue, stamped);
}

bool IppNode::IsExistEnabledMsgEmpty() const
{
    for (const auto& entry : queues) {
        if (config.IsEnabled(entry.first) && entry.second->Empty()) {
            return true;
        }
    }
    return false;
}

bool IppNode::IsTimestampAligned()
{
    for (;;) {
        ros::Time newest;
        ros::Time oldest(std::numeric_limits<uint32_t>::max(), 999999999);
        for (const auto& entry : queues) {
            if (!config.IsEnabled(entry.first)) {
                continue;
            }
            if (entry.second->Empty()) {
                return false;
            }
            const ros::Time stamp = entry.second->FrontTimestamp();
            newest = std::max(newest, stamp);
            oldest = std::min(oldest, stamp);
        }
        if (newest - oldest <= timestampTolerance) {
            return true;
        }
        DiscardOldMessages(newest);
    }
}

void IppNode::DiscardOldMessages(const ros::Time& newest)
{
    for (const auto& entry : queues) {
        MessageQueue& queue = *entry.second;
        while (!queue.Empty() && queue.FrontTimestamp() < newest) {
            queue.Pop();
            if (entry.first == Image) {
                Q_EMIT DetectedDiscardImageData();
            } else {
                Q_EMIT DetectedDiscardPerceptionData();
            }
        }
    }
}

void IppNode::GetEnabledMessage()
{
    const auto take = [this](MessageId id, auto& queue, auto& current) {
        if (config.IsEnabled(id)) {
            current = queue->GetQueue().front();
            queue->Pop();
        }
    };
    take(Objects, objectArrayQueue, objectArray);
    take(TrafficLights, imageRectangleQueue, imageRectangleArray);
    take(RoadLines, imageLineQueue, imageLineArray);
    take(Freespace, imageFreespaceQueue, imageFreespace);
    take(SemanticSegmentation, semanticSegmentationQueue, semanticSegmentation);
    take(MarkerArray, markerArrayQueue, markerArray);
}

bool IppNode::IsPerceptionDataExisted() const
{
    for (MessageId id : perceptionIds) {
        if (config.IsEnabled(id)) {
            return true;
        }
    }
    return false;
}

void IppNode::ProcessImage()
{
    uint64_t unmatchedGeneration = std::numeric_limits<uint64_t>::max();
    for (;;) {
        std::shared_ptr<YuvTextureData> image;
        {
            std::unique_lock<std::mutex> lock(mutex);
            // After a round without a match, wait for the queues to change instead of going round.
            condition.wait(lock, [&]() {
                return stopRequested || (!imageQueue->Empty() && queueGeneration != unmatchedGeneration);
            });
            if (stopRequested) {
                return;
            }
            TakeConfigIfChanged();
            if (!IsTimestampAligned()) {
                unmatchedGeneration = queueGeneration;
                continue;
            }
            image = imageQueue->GetQueue().front();
            imageQueue->Pop();
            GetEnabledMessage();
        }
        // Bad data must not end the thread: the frame is dropped, the failure logged, and the next
        // frame goes on.
        try {
            ProcessFrame(image);
        } catch (const std::exception& exception) {
            LogProcessingFailure(std::string(failurePrefix) + " The exception information is as follows: " +
                                 exception.what());
        } catch (...) {
            LogProcessingFailure(failurePrefix);
        }
    }
}

void IppNode::RegisterFrameArrayNode(const QString& topic, bool asOwnNode)
{
    customFrameArrayData.RegisterPublishNode(topic.toStdString(), asOwnNode ? ippNodeNo : -1);
}

void IppNode::ProcessFrame(const std::shared_ptr<YuvTextureData>& image)
{
    const auto frameStartTime = std::chrono::steady_clock::now();
    std::shared_ptr<RgbaTextureData> rgba;
    if (IsPerceptionDataExisted()) {
        boost::shared_ptr<sensor_msgs::Image> canvas = GeneratePerceptionImage(*image);
        DrawToImage(*canvas);
        rgba = std::make_shared<RgbaTextureData>(canvas);
    }
    if (displayEnabled && imageRender != nullptr) {
        imageRender->UpdateImageTexture(image, rgba);
    }
    customFrameArrayData.PublishMsgByFrameArray(image, rgba);
    Q_EMIT DetectedDataSend();
    const std::chrono::duration<float, std::milli> elapsed = std::chrono::steady_clock::now() - frameStartTime;
    Q_EMIT DetectedSingleFrameProcessingTime(elapsed.count());
}

boost::shared_ptr<sensor_msgs::Image> IppNode::GeneratePerceptionImage(const YuvTextureData& image)
{
    const AVFrame* frame = image.GetAvFrame();
    const bool sized = frame != nullptr && frame->width > 0 && frame->height > 0;
    boost::shared_ptr<sensor_msgs::Image> canvas = canvasPool.Take(sized ? static_cast<uint32_t>(frame->width) : 0,
                                                                   sized ? static_cast<uint32_t>(frame->height) : 0);
    canvas->header.frame_id = image.GetFrameHeader().frame_id;
    return canvas;
}

void IppNode::DrawToImage(sensor_msgs::Image& sensorImage)
{
    cv::Mat image(static_cast<int>(sensorImage.height), static_cast<int>(sensorImage.width), CV_8UC4,
                  sensorImage.data.data());
    const std::string& frameId = sensorImage.header.frame_id;
    const auto matches = [&frameId](const std::string& messageFrameId) {
        return IsFrameIdMatch(frameId, messageFrameId);
    };
    // The canvas holds its last frame's pixels: it is cleared unless the segmentation covers it.
    const bool covered = config.IsEnabled(SemanticSegmentation) && semanticSegmentation != nullptr &&
                         imageSemanticSegmentationUtils.Draw(image, config, *semanticSegmentation,
                                                             matches(semanticSegmentation->header.frame_id));
    if (!covered) {
        std::fill(sensorImage.data.begin(), sensorImage.data.end(), 0);
    }
    if (config.IsEnabled(Freespace) && imageFreespace != nullptr) {
        imageFreespaceUtils.Draw(image, config, *imageFreespace, matches(imageFreespace->header.frame_id));
    }
    if (config.IsEnabled(TrafficLights) && imageRectangleArray != nullptr) {
        imageRectangleUtils.Draw(image, config, *imageRectangleArray, matches(imageRectangleArray->header.frame_id));
    }
    if (config.IsEnabled(RoadLines) && imageLineArray != nullptr) {
        imageLineUtils.Draw(image, config, *imageLineArray, matches(imageLineArray->header.frame_id));
    }
    if (config.IsEnabled(Objects) && objectArray != nullptr) {
        imageObjectUtils.Draw(image, config, *objectArray, matches(objectArray->header.frame_id));
    }
    if (config.IsEnabled(MarkerArray) && markerArray != nullptr) {
        markerArrayUtils.DrawMarkerArray(image, config, *markerArray->markerArray,
                                         matches(markerArray->header.frame_id));
    }
}

void IppNode::LogProcessingFailure(const std::string& text)
{
    // The same failure on every frame is logged once, not thirty times a second.
    if (text == lastFailure) {
        return;
    }
    lastFailure = text;
    Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error, text);
}

} // namespace rviz_plugin

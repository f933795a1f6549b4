#include "video_decoder.h"

#include "nv_decoder.h"
#include "qsv_decoder.h"
#include "software_decoder.h"

#include "foundation/logger.h"
#include "frames/image_cache_node.h"
#include "frames/yuv_texture_data.h"

#ifndef Q_MOC_RUN
#include <rviz/display_context.h>
#endif

extern "C" {
#include <libavutil/frame.h>
}

#include <algorithm>
#include <chrono>
#include <system_error>

namespace rviz_plugin {

namespace {
const char* const logModule = "KoraVision";
const char* const topicStatus = "Topic";
const char* const decoderStatus = "Decoder Status";
const char* const receivingStatus = "Data receiving failure";
// Bounds of the two header queues, far above what a working stream needs: they only pair stamps
// with pictures, and must not grow without limit on a stream that never yields a picture.
constexpr std::size_t maxHeaderQueueLength = 64;
constexpr std::size_t maxReceivedTimeQueueLength = 1024;

template <typename T>
void PushBounded(std::deque<T>& queue, const T& value, std::size_t limit)
{
    queue.push_back(value);
    while (queue.size() > limit) {
        queue.pop_front();
    }
}

} // namespace

const QMap<int, QString>& VideoDecoder::StatusTexts()
{
    static const QMap<int, QString> texts = {
        {-3, " Failed to create the NVIDIA hardware decoder. Check whether the NVIDIA video card meets the H.265 "
             "video decoding requirements and whether the NVIDIA video card driver of a proper version are "
             "installed."},
        {-2, " Failed to create the Intel hardware decoder. Check whether the Intel CPU meets the requirements for "
             "H.265 video decoding and whether the driver for the Intel hardware decoder is installed successfully."},
        {-1, " Failed to create the software decoder. The system memory may be insufficient. Release the memory and "
             "restart the Orsa."},
        {0, "No decoder is available."},
        {1, " A software decoder is successfully created."},
        {2, " An Intel hardware decoder is successfully created."},
        {3, " An NVIDIA hardware decoder is successfully created."},
    };
    return texts;
}

const QMap<int, rviz::StatusProperty::Level>& VideoDecoder::StatusLevels()
{
    static const QMap<int, rviz::StatusProperty::Level> levels = {
        {-3, rviz::StatusProperty::Error}, {-2, rviz::StatusProperty::Error}, {-1, rviz::StatusProperty::Error},
        {0, rviz::StatusProperty::Ok},     {1, rviz::StatusProperty::Ok},     {2, rviz::StatusProperty::Ok},
        {3, rviz::StatusProperty::Ok},
    };
    return levels;
}

VideoDecoder::VideoDecoder() = default;

VideoDecoder::~VideoDecoder()
{
    videoSubscriber.shutdown();
    cameraInfoSubscriber.shutdown();
    StopThread();
    {
        std::lock_guard<std::mutex> lock(publisherMutex);
        avFramePublisher.shutdown();
        isAvFramePublisherReady = false;
    }
    decoderInfoPublisher.shutdown();
}

void VideoDecoder::Initialize(const QString& videoTopic, rviz::DisplayContext* context, int mode)
{
    Initialize(videoTopic, context != nullptr ? context->getThreadedQueue() : nullptr, mode);
}

void VideoDecoder::Initialize(const QString& videoTopic, ros::CallbackQueueInterface* callbackQueue, int mode)
{
    customAvFrameData = std::make_shared<CustomAvFrameData>();
    selectionMode = mode;
    topic = videoTopic;
    decoderInfo.decoderTopic.data = topic.toStdString();
    if (callbackQueue != nullptr) {
        nodeHandle.setCallbackQueue(callbackQueue);
    }
    decoderInfoPublisher = nodeHandle.advertise<custom::DecoderInfo>("/decoder_information", decoderInfoQueueSize);
    decoderInfo.resultCode = custom::DecoderInfo::NO_DECODER_EXIST;
    connect(&receiveTimer, &QTimer::timeout, this, &VideoDecoder::CheckIfRecvFrameInSecond);
    receiveTimer.start(1000);
    if (InitializeDecoder() == Decoder::initFailure) {
        return;
    }
    StartThread();
}

void VideoDecoder::StartThread()
{
    {
        std::lock_guard<std::mutex> lock(queueMutex);
        isRunning = true;
    }
    try {
        thread = std::thread(&VideoDecoder::ProcessVideoMsg, this);
        std::this_thread::sleep_for(std::chrono::microseconds(threadStartDelay));
    } catch (const std::system_error&) {
        std::lock_guard<std::mutex> lock(queueMutex);
        isRunning = false;
        Orsa::Logger::GetInstance().WriteLog(
            logModule, Orsa::LogLevel::Error,
            "Fail to create a new thread for VideoDecoder. Release memory and restart Orsa.");
    }
}

void VideoDecoder::StopThread()
{
    {
        std::lock_guard<std::mutex> lock(queueMutex);
        isRunning = false;
    }
    queueCondition.notify_all();
    if (thread.joinable()) {
        thread.join();
    }
}

bool VideoDecoder::IsRunning()
{
    std::lock_guard<std::mutex> lock(queueMutex);
    return isRunning;
}

int VideoDecoder::CreateDecoder(std::unique_ptr<Decoder> created, int type)
{
    decoderType = type;
    decoder = std::move(created);
    threading.Reset();
    decoder->Initialize();
    const bool initialized = decoder->GetIsInitialized();
    decoderInfo.resultCode = initialized ? type : -type;
    OnSendDecoderInformation();
    return initialized ? Decoder::initSuccess : Decoder::initFailure;
}

std::unique_ptr<Decoder> VideoDecoder::MakeDecoder(int mode, int& type)
{
    switch (mode) {
    case custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE:
        type = custom::DecoderInfo::INTEL_DECODER;
        return std::make_unique<QsvDecoder>();
    case custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE: {
        type = custom::DecoderInfo::NVIDIA_DECODER;
        auto nvidia = std::make_unique<NvDecoder>();
        nvidia->SetHwDeviceType(AV_HWDEVICE_TYPE_CUDA);
        return nvidia;
    }
    default:
        type = custom::DecoderInfo::SOFTWARE_DECODER;
        return MakeSoftwareDecoder(false);
    }
}

std::unique_ptr<Decoder> VideoDecoder::MakeSoftwareDecoder(bool frameThreads)
{
    auto software = std::make_unique<SoftwareDecoder>();
    software->SetThreadCount(softwareThreadCount);
    software->SetFrameThreading(frameThreads);
    return software;
}

int VideoDecoder::InitializeDecoder()
{
    int type = custom::DecoderInfo::SOFTWARE_DECODER;
    std::unique_ptr<Decoder> created = MakeDecoder(selectionMode, type);
    return CreateDecoder(std::move(created), type);
}

void VideoDecoder::ResetVideoDecoder()
{
    std::lock_guard<std::mutex> lock(queueMutex);
    waitingForKeyFrame = true;
}

int VideoDecoder::GetDecodingState(const VideoMessagePtr& msg)
{
    if (VideoFrameRules::IsResetCommand(msg)) {
        ResetVideoDecoder();
        return -1;
    }
    std::lock_guard<std::mutex> lock(queueMutex);
    // The decoder object is only replaced while the thread is stopped, so a running thread means a
    // decoder that initialised.
    if (!isRunning) {
        return -1;
    }
    if (!waitingForKeyFrame) {
        return 0;
    }
    if (!VideoFrameRules::IsReceivingKeyFrame(msg)) {
        return -1;
    }
    waitingForKeyFrame = false;
    return 0;
}

void VideoDecoder::RecvVideoMsg(const VideoMessagePtr& msg)
{
    if (msg == nullptr || GetDecodingState(msg) == -1) {
        return;
    }
    bool notify = false;
    {
        std::lock_guard<std::mutex> lock(queueMutex);
        if (!isRunning) {
            return;
        }
        videoQueue.push_back(msg);
        std_msgs::Header arrival;
        arrival.stamp = ros::Time::now();
        PushBounded(receivedTimeQueue, arrival, maxReceivedTimeQueueLength);
        notify = VideoFrameRules::MaintainQueueLength(videoQueue, maxVideoQueueLength, waitingForKeyFrame);
    }
    if (notify) {
        queueCondition.notify_one();
    }
    const uint32_t count = ++receivedFrameCount;
    if (count == 0) {
        Q_EMIT SetStatus(rviz::StatusProperty::Warn, topicStatus, "No data frame received");
    } else {
        Q_EMIT SetStatus(rviz::StatusProperty::Ok, topicStatus, QString("%1 data frames received").arg(count));
    }
}

void VideoDecoder::ProcessVideoMsg()
{
    try {
        for (;;) {
            VideoMessagePtr msg;
            std_msgs::Header received;
            std::size_t waiting = 0;
            {
                std::unique_lock<std::mutex> lock(queueMutex);
                queueCondition.wait(lock, [this]() { return !isRunning || !videoQueue.empty(); });
                if (!isRunning) {
                    return;
                }
                msg = videoQueue.front();
                videoQueue.pop_front();
                waiting = videoQueue.size();
                if (!receivedTimeQueue.empty()) {
                    received = receivedTimeQueue.front();
                    receivedTimeQueue.pop_front();
                }
            }
            DecodeFrame(msg, received, waiting);
        }
    } catch (const std::exception& exception) {
        Orsa::LogUnexpectedException("KoraVision", exception.what());
    } catch (...) {
        Orsa::LogUnexpectedException("KoraVision", nullptr);
    }
}

void VideoDecoder::DecodeFrame(const VideoMessagePtr& msg, const std_msgs::Header& receivedHeader,
                               std::size_t waiting)
{
    if (decoderType == custom::DecoderInfo::SOFTWARE_DECODER &&
        threading.Next(waiting, VideoFrameRules::IsReceivingKeyFrame(msg))) {
        SwitchSoftwareThreading();
    }
    auto frame = std::make_shared<YuvTextureData>();
    frame->SetReceivedTime(receivedHeader);
    int result = Decoder::decodeError;
    {
        std::lock_guard<std::mutex> lock(decoderMutex);
        decoder->SetCustomAvFrameData(customAvFrameData);
        result = decoder->Decode(msg, frame);
    }
    if (result != Decoder::noPictureYet && result != Decoder::decodedPicture) {
        return;
    }
    PushBounded(headerQueue, msg->header, maxHeaderQueueLength);
    if (result == Decoder::decodedPicture) {
        DeliverPicture(frame);
    }
}

void VideoDecoder::SwitchSoftwareThreading()
{
    std::unique_ptr<Decoder> software = MakeSoftwareDecoder(threading.FrameThreads());
    software->Initialize();
    if (!software->GetIsInitialized()) {
        return;  // the decoder there is goes on
    }
    for (;;) {
        auto frame = std::make_shared<YuvTextureData>();
        int result = Decoder::decodeError;
        {
            std::lock_guard<std::mutex> lock(decoderMutex);
            decoder->SetCustomAvFrameData(customAvFrameData);
            result = decoder->Drain(frame);
        }
        if (result != Decoder::decodedPicture) {
            break;
        }
        DeliverPicture(frame);
    }
    std::lock_guard<std::mutex> lock(decoderMutex);
    decoder = std::move(software);
    Orsa::Logger::GetInstance().WriteLog(
        "KoraVision", Orsa::LogLevel::Debug,
        topic.toStdString() + ": software decoding on " + (threading.FrameThreads() ? "frame threads" : "one thread"));
}

void VideoDecoder::DeliverPicture(const std::shared_ptr<YuvTextureData>& frame)
{
    // Pictures leave the decoder behind their packets: the oldest queued header is this picture's.
    std_msgs::Header header;
    if (!headerQueue.empty()) {
        header = headerQueue.front();
        headerQueue.pop_front();
    }
    frame->SetFrameHeader(header);
    SendImage(frame);

    std::lock_guard<std::mutex> lock(publisherMutex);
    if (!isAvFramePublisherReady) {
        return;
    }
    if (customAvFrameData->IsActive()) {
        auto message = customAvFrameData->TakeMessage();
        message->header = header;
        message->height = frame->GetAvFrame()->height;
        message->width = frame->GetAvFrame()->width;
        avFramePublisher.publish(message);
    }
    customAvFrameData->SetActive(avFramePublisher.getNumSubscribers() > 0);
}

void VideoDecoder::SendImage(const std::shared_ptr<YuvTextureData>& frame)
{
    std::lock_guard<std::mutex> lock(ippNodeMutex);
    for (const auto& [number, node] : ippNodes) {
        node->SaveImageToCache(frame);
    }
}

void VideoDecoder::AddIppNode(ImageCacheNode* node)
{
    if (node == nullptr) {
        return;
    }
    std::lock_guard<std::mutex> lock(ippNodeMutex);
    ippNodes[static_cast<unsigned>(node->GetIppNodeNo())] = node;
}

void VideoDecoder::RemoveIppNode(unsigned nodeNumber)
{
    std::lock_guard<std::mutex> lock(ippNodeMutex);
    ippNodes.erase(nodeNumber);
}

void VideoDecoder::Subscribe()
{
    if (isSubscribed && subscribedQueueSize == GetMaxQueueSizeFromRecord()) {
        return;
    }
    Unsubscribe();
    ResetVideoDecoder();
    try {
        if (!topic.isEmpty()) {
            subscribedQueueSize = GetMaxQueueSizeFromRecord();
            videoSubscriber = nodeHandle.subscribe<custom::Video>(
                topic.toStdString(), static_cast<uint32_t>(subscribedQueueSize),
                [this](const boost::shared_ptr<const custom::Video>& msg) {
                    // The decoder only reads the message; the subscription hands it over as const.
                    RecvVideoMsg(boost::const_pointer_cast<custom::Video>(msg));
                });
            receivedFrameCount = 0;
            lastReceivedFrameCount = 0;
        }
        isSubscribed = true;
        cameraInfoSubscriber = nodeHandle.subscribe("camera_info", 1, &VideoDecoder::RecvCameraInfoMsg, this);
        std::lock_guard<std::mutex> lock(publisherMutex);
        avFramePublisher = nodeHandle.advertise<custom::AvFrame>(topic.toStdString() + "_avFrame", avFrameQueueSize);
        isAvFramePublisherReady = true;
    } catch (const ros::Exception& exception) {
        Q_EMIT SetStatus(rviz::StatusProperty::Error, topicStatus,
                         QString("Error subscribing: ") + QString::fromStdString(exception.what()));
    }
}

void VideoDecoder::Unsubscribe()
{
    videoSubscriber.shutdown();
    {
        std::lock_guard<std::mutex> lock(publisherMutex);
        avFramePublisher.shutdown();
        isAvFramePublisherReady = false;
    }
    cameraInfoSubscriber.shutdown();
    isSubscribed = false;
}

void VideoDecoder::RecvCameraInfoMsg(const sensor_msgs::CameraInfo::ConstPtr& info)
{
    Q_EMIT SendCameraInfoMsg(info);
}

void VideoDecoder::AddQueueSizeRecord(int size)
{
    const auto position = std::find_if(queueSizeRecords.begin(), queueSizeRecords.end(),
                                       [size](int record) { return record < size; });
    queueSizeRecords.insert(position, size);
}

void VideoDecoder::RemoveQueueSizeRecord(int size)
{
    for (auto it = queueSizeRecords.begin(); it != queueSizeRecords.end() && *it >= size; ++it) {
        if (*it == size) {
            queueSizeRecords.erase(it);
            return;
        }
    }
}

int VideoDecoder::GetMaxQueueSizeFromRecord() const
{
    return queueSizeRecords.empty() ? defaultQueueSize : queueSizeRecords.front();
}

void VideoDecoder::UpdateDecoderSelection()
{
    Q_EMIT ChangeDecoderSelectionByDecoder(selectionMode);
}

void VideoDecoder::UpdateDecoderStatus()
{
    const int code = decoderInfo.resultCode;
    Q_EMIT SetStatus(StatusLevels().value(code, rviz::StatusProperty::Error), decoderStatus,
                     StatusTexts().value(code));
}

void VideoDecoder::ResetDecoderInfoStatus()
{
    isDecoderInfoSent = false;
}

void VideoDecoder::OnSendDecoderInformation()
{
    if (isDecoderInfoSent) {
        return;
    }
    custom::DecoderInfo copy;
    copy.decoderTopic = decoderInfo.decoderTopic;
    copy.resultCode = decoderInfo.resultCode;
    decoderInfoPublisher.publish(copy);
    isDecoderInfoSent = true;
}

void VideoDecoder::OnUpdateCameraDecoder(int mode)
{
    if (mode == selectionMode) {
        return;
    }
    selectionMode = mode;
    StopThread();
    {
        std::lock_guard<std::mutex> lock(queueMutex);
        videoQueue.clear();
        headerQueue.clear();
    }
    int result = Decoder::initFailure;
    {
        std::lock_guard<std::mutex> lock(decoderMutex);
        result = InitializeDecoder();
    }
    UpdateDecoderStatus();
    Q_EMIT ChangeDecoderSelectionByDecoder(mode);
    if (result == Decoder::initSuccess) {
        ResetVideoDecoder();
        StartThread();
    }
}

void VideoDecoder::CheckIfRecvFrameInSecond()
{
    const uint32_t count = receivedFrameCount;
    if (isSubscribed && count == lastReceivedFrameCount) {
        Q_EMIT SetStatus(rviz::StatusProperty::Warn, receivingStatus, "No data was received in the last 1 second.");
    } else {
        Q_EMIT DeleteStatus(receivingStatus);
    }
    lastReceivedFrameCount = count;
}

} // namespace rviz_plugin

#include "vision_data_handler.h"

#include "frames/frame_converter.h"
#include "kora_vision_logic/camera_alias.h"
#include "topic_rename/rename_data.h"

#include "foundation/logger.h"


namespace rviz_plugin {

namespace {
const char* const logModule = "RecordVideoDataTool";
const char* const noImageResource = ":/recordqrc/assets/image/no_image.png";
constexpr int grayFormat = 8; // GRAY8
constexpr int fallbackWidth = 320;
constexpr int fallbackHeight = 180;
constexpr int fallbackGrey = 40;

void Log(Orsa::LogLevel level, const std::string& message)
{
    Orsa::Logger::GetInstance().WriteLog(logModule, level, message);
}
} // namespace

VisionDataHandler::VisionDataHandler(QObject* parent) : DataRecorderBase(parent) {}

VisionDataHandler::~VisionDataHandler()
{
    ShutDown();
}

std::string VisionDataHandler::GetExportTopicName(const std::string& recordTopic)
{
    const std::string camera = recordTopic.substr(0, recordTopic.find("_frameArray"));
    std::string named;
    RenameData::GetCameraTopicWidthAlias(named, camera);
    return GetCameraFileName(named) + "_";
}

void VisionDataHandler::StartSubscriber()
{
    nodeHandle = std::make_unique<ros::NodeHandle>();
    nodeHandle->setCallbackQueue(&callbackQueue);
    subscriber = nodeHandle->subscribe(topic, subscribeQueueSize, &VisionDataHandler::RecvFrameArrayMsg, this);
    spinner = std::make_unique<ros::AsyncSpinner>(1, &callbackQueue);
    spinner->start();
}

void VisionDataHandler::ShutDownSubscriber()
{
    subscriber.shutdown();
    if (spinner != nullptr) {
        spinner->stop();
    }
    callbackQueue.clear();
}

void VisionDataHandler::RecvFrameArrayMsg(const boost::shared_ptr<const custom::AvFrameArray>& msg)
{
    {
        std::lock_guard<std::mutex> lock(messageMutex);
        newestMessage = msg;
    }
    ticksWithoutFrame = 0;
}

boost::shared_ptr<const custom::AvFrameArray> VisionDataHandler::NewestMessage()
{
    std::lock_guard<std::mutex> lock(messageMutex);
    return newestMessage;
}

bool VisionDataHandler::IsMsgReady(const boost::shared_ptr<const custom::AvFrameArray>& msg)
{
    return msg != nullptr && msg->AvFrameArray.size() >= 2;
}

bool VisionDataHandler::IsNeedOverlayFrame(const custom::AvFrame& overlay)
{
    return overlay.format >= 0 && overlay.width != 0 && overlay.height != 0;
}

std::pair<int, int> VisionDataHandler::GetDataResolution()
{
    const auto msg = NewestMessage();
    if (!IsMsgReady(msg)) {
        return {0, 0};
    }
    return {msg->AvFrameArray[0].width, msg->AvFrameArray[0].height};
}

QImage VisionDataHandler::GetPreviewImage()
{
    std::lock_guard<std::mutex> lock(previewMutex);
    return previewImage;
}

void VisionDataHandler::OnTimeout()
{
    ++queuedTicks;
    ++ticksWithoutFrame;
}

void VisionDataHandler::Recording()
{
    --queuedTicks;
    if (IsPreviewing()) {
        ConvertImage();
        return;
    }
    if (!IsRecording() || !isActive) {
        return;
    }
    WarnIfStacked(queuedTicks);
    EncodeFrame(ticksWithoutFrame > noFrameLimit);
}

bool VisionDataHandler::EncodeFrame(bool useEmptyFrame)
{
    if (useEmptyFrame) {
        return EncodeTimed(emptyFrame);
    }
    const auto msg = NewestMessage();
    if (!IsMsgReady(msg)) {
        return false;
    }
    const custom::AvFrame& video = msg->AvFrameArray[0];
    const custom::AvFrame& overlay = msg->AvFrameArray[1];
    if (!IsNeedOverlayFrame(overlay)) {
        return EncodeTimed(video);
    }
    if (msg == overlaidMessage && filter.GetIsInitialized()) {
        return EncodeTimed(filter.GetOutputFrame());
    }
    overlaidMessage.reset();
    if (!filter.GetIsInitialized() || filter.GetSize() != std::make_pair(video.width, video.height)) {
        ResetFilter(video.width, video.height);
    }
    const int result = filter.OverlayMsg(video, overlay);
    if (result == FfmpegFilter::filterError) {
        Log(Orsa::LogLevel::Error, "Failed to Convert image: Message overlay failed.");
        return false;
    }
    if (result != FfmpegFilter::pictureReady) {
        return false;
    }
    overlaidMessage = msg;
    return EncodeTimed(filter.GetOutputFrame());
}

bool VisionDataHandler::ResetFilter(int width, int height)
{
    overlaidMessage.reset();
    filter.Clear();
    return filter.Initialize({width, height});
}

void VisionDataHandler::ConvertImage()
{
    const auto msg = NewestMessage();
    if (isPreviewImageReady || !IsMsgReady(msg)) {
        return;
    }
    const custom::AvFrame& video = msg->AvFrameArray[0];
    const custom::AvFrame& overlay = msg->AvFrameArray[1];
    if (video.data.empty() || video.width <= 0 || video.height <= 0) {
        Log(Orsa::LogLevel::Error, "Failed to Convert image: Message is empty.");
        std::lock_guard<std::mutex> lock(messageMutex);
        newestMessage.reset();
        return;
    }
    QImage image;
    if (IsNeedOverlayFrame(overlay)) {
        if (!ResetFilter(video.width, video.height)) {
            Log(Orsa::LogLevel::Error, "Failed to Convert image: Filter Initialize failed.");
            return;
        }
        if (filter.OverlayMsg(video, overlay) != FfmpegFilter::pictureReady) {
            Log(Orsa::LogLevel::Error, "Failed to Convert image: Message overlay failed.");
            return;
        }
        if (!FrameConverter::ConvertDataToQtImage(filter.GetOutputFrame(), image)) {
            Log(Orsa::LogLevel::Error, "Failed to Convert image: Convert message to qt image failed.");
            return;
        }
    } else if (!FrameConverter::ConvertDataToQtImage(video, image)) {
        Log(Orsa::LogLevel::Error, "Failed to Convert image: Convert message to qt image failed.");
        return;
    }
    // One complete picture is all a preview needs.
    subscriber.shutdown();
    {
        std::lock_guard<std::mutex> lock(previewMutex);
        previewImage = image;
    }
    isPreviewImageReady = true;
}

std::string VisionDataHandler::GetTimeStamp()
{
    const auto msg = NewestMessage();
    const ros::Time stamp = msg != nullptr ? msg->header.stamp : ros::Time::now();
    return std::to_string(stamp.sec) + "-" + std::to_string(stamp.nsec);
}

void VisionDataHandler::InitEmptyFrame()
{
    QImage image(noImageResource);
    if (image.isNull()) {
        image = QImage(fallbackWidth, fallbackHeight, QImage::Format_Grayscale8);
        image.fill(fallbackGrey);
    }
    image = image.convertToFormat(QImage::Format_Grayscale8);
    emptyFrame = custom::AvFrame();
    emptyFrame.format = grayFormat;
    emptyFrame.width = image.width();
    emptyFrame.height = image.height();
    emptyFrame.linesize = {static_cast<int32_t>(image.bytesPerLine())};
    emptyFrame.data.resize(1);
    emptyFrame.data[0].data.assign(image.constBits(), image.constBits() + image.sizeInBytes());
}

bool VisionDataHandler::Start()
{
    const std::string name = settings.folder + "/" + GetExportTopicName(topic) + GetTimeStamp() + ".mp4";
    SetFileName(name);
    encoder->SetFileName(name);
    ticksWithoutFrame = 0;
    InitEmptyFrame();
    encoder->InitWriteHeader();
    return encoder->GetIsInitialized();
}

} // namespace rviz_plugin

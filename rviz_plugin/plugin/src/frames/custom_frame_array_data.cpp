#include "custom_frame_array_data.h"

#include "custom_av_frame_data.h"
#include "rgba_texture_data.h"
#include "yuv_texture_data.h"

#include <ros/topic_manager.h>

extern "C" {
#include <libavutil/frame.h>
}

#include <algorithm>

namespace rviz_plugin {

namespace {
constexpr std::size_t entryCount = 2;
constexpr int bytesPerOverlayPixel = 4;

custom::AvFrame EmptyEntry()
{
    custom::AvFrame entry;
    entry.format = -1;
    return entry;
}
} // namespace

void CustomFrameArrayData::Initialize()
{
    std::lock_guard<std::mutex> lock(mutex);
    publisher.shutdown();
    publishTopic.clear();
}

void CustomFrameArrayData::RegisterPublishNode(const std::string& topic, int number)
{
    if (topic.find("...") != std::string::npos) {
        return;
    }
    const std::string suffix = number == -1 ? "_frameArray" : "_frameArray_" + std::to_string(number);
    const std::string name = "/" + topic + suffix;
    std::lock_guard<std::mutex> lock(mutex);
    if (nodeHandle == nullptr) {
        nodeHandle = std::make_unique<ros::NodeHandle>();
    }
    ros::Publisher advertised = nodeHandle->advertise<custom::AvFrameArray>(name, publishQueueSize);
    publisher = advertised;
    publishTopic = name;
}

std::string CustomFrameArrayData::GetPublishTopic() const
{
    std::lock_guard<std::mutex> lock(mutex);
    return publishTopic;
}

bool CustomFrameArrayData::IsListenedInProcess() const
{
    const std::string topic = GetPublishTopic();
    if (topic.empty()) {
        return false;
    }
    ros::V_string subscribed;
    ros::TopicManager::instance()->getSubscribedTopics(subscribed);
    return std::find(subscribed.begin(), subscribed.end(), topic) != subscribed.end();
}

void CustomFrameArrayData::PublishMsgByFrameArray(const std::shared_ptr<YuvTextureData>& yuvFrame,
                                                  const std::shared_ptr<RgbaTextureData>& rgbaFrame)
{
    if (!IsListenedInProcess()) {
        return;
    }
    // A new message each time: a subscriber in this process is handed the published object itself.
    const auto message = MakeFrameArray(yuvFrame.get(), rgbaFrame.get());
    std::lock_guard<std::mutex> lock(mutex);
    publisher.publish(message);
}

boost::shared_ptr<custom::AvFrameArray> CustomFrameArrayData::MakeFrameArray(const YuvTextureData* yuvFrame,
                                                                           const RgbaTextureData* rgbaFrame)
{
    auto message = boost::make_shared<custom::AvFrameArray>();
    message->AvFrameArray.assign(entryCount, EmptyEntry());
    if (yuvFrame != nullptr && yuvFrame->GetAvFrame() != nullptr) {
        const AVFrame* frame = yuvFrame->GetAvFrame();
        custom::AvFrame& video = message->AvFrameArray[0];
        FillAvFrameMessage(frame, video);
        video.header = yuvFrame->GetFrameHeader();
        video.width = frame->width;
        video.height = frame->height;
        message->header = video.header;
    }
    if (rgbaFrame != nullptr && rgbaFrame->GetSensorImage() != nullptr) {
        const sensor_msgs::Image& image = *rgbaFrame->GetSensorImage();
        custom::AvFrame& overlay = message->AvFrameArray[1];
        overlay.header = image.header;
        overlay.format = overlayFormat;
        overlay.width = static_cast<int32_t>(image.width);
        overlay.height = static_cast<int32_t>(image.height);
        overlay.linesize.assign(1, static_cast<int32_t>(image.width) * bytesPerOverlayPixel);
        overlay.data.resize(1);
        overlay.data[0].data = image.data;
    }
    return message;
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_CUSTOM_FRAME_ARRAY_DATA_H
#define RVIZ_PLUGIN_CUSTOM_FRAME_ARRAY_DATA_H

#include <custom/AvFrameArray.h>
#include <ros/ros.h>

#include <memory>
#include <mutex>
#include <string>

namespace rviz_plugin {

class RgbaTextureData;
class YuvTextureData;

// The picture of a video item and its overlay, published together as a two-entry custom/AvFrameArray for the
// recorders. Entry 0 is the decoded picture, entry 1 the overlay canvas (BGRA); an absent one stays empty
// (format -1). Filling copies both pictures, so it is done only while a subscriber in this process listens.
class CustomFrameArrayData {
public:
    static constexpr int overlayFormat = 28; // BGRA
    static constexpr int publishQueueSize = 10;

    void Initialize();
    // Advertises "/<topic>_frameArray", or "/<topic>_frameArray_<number>" for a number other than -1.
    // A placeholder topic (one holding "...") advertises nothing.
    void RegisterPublishNode(const std::string& topic, int number);
    void PublishMsgByFrameArray(const std::shared_ptr<YuvTextureData>& yuvFrame,
                                const std::shared_ptr<RgbaTextureData>& rgbaFrame);
    std::string GetPublishTopic() const;

    // The message for the two pictures; either may be null.
    static boost::shared_ptr<custom::AvFrameArray> MakeFrameArray(const YuvTextureData* yuvFrame,
                                                                  const RgbaTextureData* rgbaFrame);

private:
    bool IsListenedInProcess() const;

    mutable std::mutex mutex;
    // Made with the first topic: an overlay node without one needs no ROS.
    std::unique_ptr<ros::NodeHandle> nodeHandle;
    ros::Publisher publisher;
    std::string publishTopic;
};

} // namespace rviz_plugin

#endif

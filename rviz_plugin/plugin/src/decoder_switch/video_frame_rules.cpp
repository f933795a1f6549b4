#include "video_frame_rules.h"

#include <algorithm>

namespace rviz_plugin {

const std::string VideoFrameRules::resetCommand = "TcpConnectionIsBrokenResetCurrentCameraDecoder";

bool VideoFrameRules::IsReceivingKeyFrame(const VideoMessagePtr& msg)
{
    if (msg == nullptr || msg->data.size() < keyFramePrefixLength) {
        return false;
    }
    const auto& data = msg->data;
    return data[0] == 0 && data[1] == 0 && data[2] == 0 && data[3] == 1 && data[4] == keyFrameNalHeader;
}

bool VideoFrameRules::IsResetCommand(const VideoMessagePtr& msg)
{
    return msg != nullptr && msg->data.size() == resetCommand.size() &&
           std::equal(resetCommand.begin(), resetCommand.end(), msg->data.begin());
}

bool VideoFrameRules::MaintainQueueLength(std::deque<VideoMessagePtr>& queue, std::size_t maxLength,
                                          bool& waitingForKey)
{
    if (queue.size() <= maxLength) {
        return true;
    }
    for (;;) {
        if (IsReceivingKeyFrame(queue.front()) && queue.size() <= maxLength) {
            return true;
        }
        queue.pop_front();
        if (queue.empty()) {
            waitingForKey = true;
            return false;
        }
    }
}

} // namespace rviz_plugin

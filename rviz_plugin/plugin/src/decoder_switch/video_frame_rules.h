#ifndef RVIZ_PLUGIN_VIDEO_FRAME_RULES_H
#define RVIZ_PLUGIN_VIDEO_FRAME_RULES_H

#include <custom/Video.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

namespace rviz_plugin {

using VideoMessagePtr = boost::shared_ptr<custom::Video>;

// What the decoding pipeline decides about encoded frames before any decoding: key frames, the
// sender's reset command, and the drop rule of the bounded queue.
class VideoFrameRules {
public:
    // NAL header byte of an H.265 video parameter set, behind a four-byte start code.
    static constexpr uint8_t keyFrameNalHeader = 0x40;
    static constexpr std::size_t keyFramePrefixLength = 5;
    static const std::string resetCommand;

    // An access unit that opens with a video parameter set behind 00 00 00 01.
    static bool IsReceivingKeyFrame(const VideoMessagePtr& msg);
    // The sender's message that its connection broke ("TcpConnectionIsBrokenResetCurrentCameraDecoder").
    static bool IsResetCommand(const VideoMessagePtr& msg);
    // Cuts an overlong queue back to a key frame; false (and waitingForKey set) when nothing is left.
    static bool MaintainQueueLength(std::deque<VideoMessagePtr>& queue, std::size_t maxLength, bool& waitingForKey);
};

} // namespace rviz_plugin

#endif

// libFuzzer target: a camera topic's access units as the decoding pipeline takes them. The input is
// a sequence of units, each a two-byte little-endian length and its bytes; they pass the reset
// command, the wait for a key frame and the queue's drop rule (limit 30), then the software decoder,
// and each decoded picture is converted as for a small window.
#include "decoder_switch/software_decoder.h"
#include "decoder_switch/video_frame_rules.h"
#include "frames/yuv_texture_data.h"

#include <boost/make_shared.hpp>

#include <cstddef>
#include <cstdint>
#include <deque>

namespace {
constexpr std::size_t queueLimit = 30;
constexpr std::size_t maxUnits = 64;
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using rviz_plugin::VideoFrameRules;
    std::deque<rviz_plugin::VideoMessagePtr> queue;
    bool waitingForKeyFrame = true;
    std::size_t offset = 0;
    for (std::size_t unit = 0; unit < maxUnits && offset + 2 <= size; ++unit) {
        const std::size_t length = std::min<std::size_t>(data[offset] | (data[offset + 1] << 8), size - offset - 2);
        offset += 2;
        auto message = boost::make_shared<custom::Video>();
        message->header.seq = static_cast<uint32_t>(unit);
        message->data.assign(data + offset, data + offset + length);
        offset += length;
        if (VideoFrameRules::IsResetCommand(message)) {
            waitingForKeyFrame = true;
            continue;
        }
        if (waitingForKeyFrame && !VideoFrameRules::IsReceivingKeyFrame(message)) {
            continue;
        }
        waitingForKeyFrame = false;
        queue.push_back(message);
        VideoFrameRules::MaintainQueueLength(queue, queueLimit, waitingForKeyFrame);
    }
    if (queue.empty()) {
        return 0;
    }
    // One decoder for the whole run, as a camera's decoder lives across its stream's restarts; its
    // opening would otherwise cost most of each execution.
    static rviz_plugin::SoftwareDecoder* decoder = []() {
        auto* created = new rviz_plugin::SoftwareDecoder();
        created->SetThreadCount(1);
        if (created->Initialize() != rviz_plugin::Decoder::initSuccess) {
            __builtin_trap();  // the software decoder always exists
        }
        return created;
    }();
    for (const auto& message : queue) {
        auto frame = std::make_shared<rviz_plugin::YuvTextureData>();
        if (decoder->Decode(message, frame) != rviz_plugin::Decoder::decodedPicture) {
            continue;
        }
        rviz_plugin::TransformCore core;
        core.windowWidth = 64;
        core.windowHeight = 48;
        std::vector<uint8_t> buffer;
        std_msgs::Header header;
        frame->ConvertToTextureImage(buffer, header, core);
    }
    return 0;
}

#include "custom_av_frame_data.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <algorithm>

namespace rviz_plugin {

const PlaneTable& GetPlaneTable()
{
    static const PlaneTable table = {
        {0, {{1, 1}, {1, 2}, {1, 2}}},  // YUV420P
        {1, {{1, 1}}},                  // YUYV422
        {2, {{1, 1}}},                  // RGB24
        {3, {{1, 1}}},                  // BGR24
        {4, {{1, 1}, {2, 3}, {2, 3}}},  // YUV422P
        {5, {{1, 1}, {1, 1}, {1, 1}}},  // YUV444P
        {12, {{1, 1}, {1, 2}, {1, 2}}}, // YUVJ420P
        {23, {{1, 1}, {1, 2}}},         // NV12
    };
    return table;
}

void FillAvFrameMessage(const AVFrame* frame, custom::AvFrame& message)
{
    if (frame == nullptr) {
        return;
    }
    message.format = frame->format;
    const auto found = GetPlaneTable().find(frame->format);
    const std::size_t planes = found == GetPlaneTable().end() ? 0 : found->second.size();
    message.linesize.assign(frame->linesize, frame->linesize + planes);
    message.data.resize(planes);
    for (std::size_t i = 0; i < planes; ++i) {
        const auto [first, second] = found->second[i];
        const long long length =
            static_cast<long long>(frame->height) * first * frame->linesize[i] / second;
        auto& bytes = message.data[i].data;
        if (frame->data[i] == nullptr || length <= 0) {
            bytes.clear();
            continue;
        }
        bytes.assign(frame->data[i], frame->data[i] + length);
    }
}

} // namespace rviz_plugin

#include "h265_encoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/opt.h>
}

#include <cstring>

#include "synthetic_scene.h"

namespace simulated_car {

H265Encoder::H265Encoder(int w, int h, int fps, int keyInterval) : width(w), height(h)
{
    const AVCodec* codec = avcodec_find_encoder_by_name("libx265");
    if (codec == nullptr) {
        error = "libx265 encoder not found";
        return;
    }
    context = avcodec_alloc_context3(codec);
    frame = av_frame_alloc();
    packet = av_packet_alloc();
    if (context == nullptr || frame == nullptr || packet == nullptr) {
        error = "out of memory";
        return;
    }
    context->width = width;
    context->height = height;
    context->time_base = AVRational{1, fps};
    context->framerate = AVRational{fps, 1};
    context->pix_fmt = AV_PIX_FMT_YUV420P;
    context->gop_size = keyInterval;
    context->max_b_frames = 0;
    context->thread_count = 1;
    av_opt_set(context->priv_data, "preset", "ultrafast", 0);
    av_opt_set(context->priv_data, "tune", "zerolatency", 0);
    const std::string params = "keyint=" + std::to_string(keyInterval) + ":min-keyint=" +
                               std::to_string(keyInterval) +
                               ":bframes=0:repeat-headers=1:scenecut=0:log-level=error:frame-threads=1";
    av_opt_set(context->priv_data, "x265-params", params.c_str(), 0);
    const int opened = avcodec_open2(context, codec, nullptr);
    if (opened < 0) {
        error = "cannot open libx265: " + std::to_string(opened);
        avcodec_free_context(&context);
        return;
    }
    frame->width = width;
    frame->height = height;
    frame->format = AV_PIX_FMT_YUV420P;
    if (av_frame_get_buffer(frame, 0) < 0) {
        error = "cannot allocate the picture";
        avcodec_free_context(&context);
    }
}

H265Encoder::~H265Encoder()
{
    avcodec_free_context(&context);
    av_frame_free(&frame);
    av_packet_free(&packet);
}

std::vector<uint8_t> H265Encoder::Encode(const YuvImage& image)
{
    std::vector<uint8_t> unit;
    if (context == nullptr || image.width != width || image.height != height ||
        av_frame_make_writable(frame) < 0) {
        return unit;
    }
    const std::vector<uint8_t>* planes[3] = {&image.y, &image.u, &image.v};
    for (int plane = 0; plane < 3; ++plane) {
        const int planeWidth = plane == 0 ? width : (width + 1) / 2;
        const int planeHeight = plane == 0 ? height : (height + 1) / 2;
        for (int row = 0; row < planeHeight; ++row) {
            std::memcpy(frame->data[plane] + static_cast<std::ptrdiff_t>(row) * frame->linesize[plane],
                        planes[plane]->data() + static_cast<std::ptrdiff_t>(row) * planeWidth,
                        static_cast<std::size_t>(planeWidth));
        }
    }
    frame->pts = nextPts++;
    if (avcodec_send_frame(context, frame) < 0) {
        return unit;
    }
    while (avcodec_receive_packet(context, packet) == 0) {
        unit.insert(unit.end(), packet->data, packet->data + packet->size);
        av_packet_unref(packet);
    }
    return unit;
}

std::vector<std::vector<uint8_t>> EncodeSceneStream(int width, int height, int fps, int keyInterval, int count)
{
    std::vector<std::vector<uint8_t>> units;
    H265Encoder encoder(width, height, fps, keyInterval);
    SyntheticScene scene(width, height, 0);
    YuvImage image(width, height);
    for (int index = 0; index < count && encoder.IsOpen(); ++index) {
        scene.Render(static_cast<double>(index) / fps, image);
        units.push_back(encoder.Encode(image));
    }
    return units;
}

} // namespace simulated_car

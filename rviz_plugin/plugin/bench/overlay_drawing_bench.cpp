// Drawing time of the perception overlay per 1080p frame, next to the single-threaded decoding time
// of the same frames in the same run.
//
//   overlay_drawing_bench [--frames N]
//
// Per frame, as the overlay thread does it: a 1920x1080 BGRA canvas from the node's pool, then a
// 10-class segmentation (which covers the canvas, so it is not cleared first) and a freespace mask
// (768x512 each, nearest neighbour), 8 road lines, and 64 objects with their labels (the same each
// frame, so drawn once and copied after). Decoding: the same number of 1080p H.265 pictures of the
// simulated car (libx265, key frame every 30), libavcodec with one thread. Target: drawing <= 2.5 ms
// on one core.
#include "overlay/canvas_pool.h"
#include "overlay/image_freespace_utils.h"
#include "overlay/image_line_utils.h"
#include "overlay/image_object_utils.h"
#include "overlay/image_semantic_segmentation_utils.h"
#include "simulated_car/h265_encoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

using Clock = std::chrono::steady_clock;
using namespace rviz_plugin;

namespace {

constexpr int width = 1920;
constexpr int height = 1080;
constexpr int maskWidth = 768;
constexpr int maskHeight = 512;

double Milliseconds(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

struct Summary {
    double median = 0;
    double mean = 0;
    double p99 = 0;
};

Summary Summarise(std::vector<double> samples)
{
    std::sort(samples.begin(), samples.end());
    Summary summary;
    summary.median = samples[samples.size() / 2];
    summary.p99 = samples[std::min(samples.size() - 1, samples.size() * 99 / 100)];
    for (double sample : samples) {
        summary.mean += sample;
    }
    summary.mean /= static_cast<double>(samples.size());
    return summary;
}

custom::ObjectArray MakeObjects()
{
    custom::ObjectArray objects;
    for (int index = 0; index < 64; ++index) {
        custom::Object object;
        object.boxImage.x = 20 + (index % 16) * 118;
        object.boxImage.y = 300 + (index / 16) * 180;
        object.boxImage.width = 90;
        object.boxImage.height = 70;
        object.classification = static_cast<uint8_t>(index % 8);
        object.classificationConfidence = 0.5 + index / 200.0;
        objects.objectList.push_back(object);
    }
    return objects;
}

custom::ImageLineArray MakeLines()
{
    custom::ImageLineArray lines;
    for (int index = 0; index < 8; ++index) {
        custom::ImageLine line;
        line.b = 0.0002 * (index - 4);
        line.c = 0.3 * (index - 4);
        line.d = 200 + 200 * index;
        line.startPoint.y = 500;
        line.endPoint.y = 1079;
        line.startPoint.x = line.b * 500 * 500 + line.c * 500 + line.d;
        line.endPoint.x = line.b * 1079 * 1079 + line.c * 1079 + line.d;
        line.classification = static_cast<uint8_t>(index % 2);
        line.classificationConfidence = 0.9;
        lines.lineList.push_back(line);
    }
    return lines;
}

// Decodes every unit with one thread; returns milliseconds per picture.
std::vector<double> DecodeTimes(const std::vector<std::vector<uint8_t>>& units)
{
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_HEVC);
    AVCodecContext* context = avcodec_alloc_context3(codec);
    context->thread_count = 1;
    avcodec_open2(context, codec, nullptr);
    AVPacket* packet = av_packet_alloc();
    AVFrame* frame = av_frame_alloc();
    std::vector<double> times;
    for (const auto& unit : units) {
        const auto start = Clock::now();
        packet->data = const_cast<uint8_t*>(unit.data());
        packet->size = static_cast<int>(unit.size());
        avcodec_send_packet(context, packet);
        while (avcodec_receive_frame(context, frame) == 0) {
            av_frame_unref(frame);
        }
        times.push_back(Milliseconds(Clock::now() - start));
    }
    av_frame_free(&frame);
    av_packet_free(&packet);
    avcodec_free_context(&context);
    return times;
}

} // namespace

int main(int argc, char** argv)
{
    int frames = 120;
    if (argc == 3 && std::strcmp(argv[1], "--frames") == 0) {
        frames = std::max(10, std::atoi(argv[2]));
    }
    IppConfig config;
    config.messages[Objects].enabled = true;
    for (unsigned value = 8; value < 10; ++value) {
        config.semanticSegmentationClassifications[value].color = {static_cast<uint8_t>(value * 20), 80, 160};
    }
    const custom::ObjectArray objects = MakeObjects();
    const custom::ImageLineArray lines = MakeLines();
    orsa_msgs::ImageFreespace freespace;
    freespace.width = maskWidth;
    freespace.height = maskHeight;
    orsa_msgs::SemanticSegmentation segmentation;
    segmentation.width = maskWidth;
    segmentation.height = maskHeight;
    for (int y = 0; y < maskHeight; ++y) {
        for (int x = 0; x < maskWidth; ++x) {
            freespace.pixelValues.push_back(y > maskHeight / 2 && std::abs(x - maskWidth / 2) < y - maskHeight / 2
                                                ? 1
                                                : 0);
            segmentation.classification.push_back(static_cast<uint8_t>((x / 77 + y / 103) % 10));
        }
    }
    ImageUtils::ImageObjectUtils objectPainter;
    ImageUtils::ImageLineUtils linePainter;
    ImageUtils::ImageFreespaceUtils freespacePainter;
    ImageUtils::ImageSemanticSegmentationUtils segmentationPainter;

    std::vector<double> drawTimes;
    // Mean milliseconds of each step: canvas, segmentation, freespace, lines, objects.
    double steps[5] = {};
    const char* const stepNames[5] = {"canvas", "segmentation", "freespace", "lines", "objects"};
    CanvasPool pool;
    for (int frame = 0; frame < frames; ++frame) {
        Clock::time_point marks[6];
        marks[0] = Clock::now();
        const boost::shared_ptr<sensor_msgs::Image> image = pool.Take(width, height);
        cv::Mat canvas(height, width, CV_8UC4, image->data.data());
        marks[1] = Clock::now();
        if (!segmentationPainter.Draw(canvas, config, segmentation, true)) {
            canvas.setTo(cv::Scalar::all(0));
        }
        marks[2] = Clock::now();
        freespacePainter.Draw(canvas, config, freespace, true);
        marks[3] = Clock::now();
        linePainter.Draw(canvas, config, lines, true);
        marks[4] = Clock::now();
        objectPainter.Draw(canvas, config, objects, true);
        marks[5] = Clock::now();
        for (int step = 0; step < 5; ++step) {
            steps[step] += Milliseconds(marks[step + 1] - marks[step]) / frames;
        }
        drawTimes.push_back(Milliseconds(marks[5] - marks[0]));
    }

    std::printf("encoding %d pictures of %dx%d for the decoding reference...\n", frames, width, height);
    const auto units = simulated_car::EncodeSceneStream(width, height, 30, 30, frames);
    const Summary draw = Summarise(drawTimes);
    const Summary decode = Summarise(DecodeTimes(units));
    std::printf("overlay drawing per 1080p frame (64 objects, 8 lines, freespace, 10-class segmentation), one core:\n"
                "  median %.2f ms, mean %.2f ms, p99 %.2f ms (target <= 2.5 ms)\n",
                draw.median, draw.mean, draw.p99);
    for (int step = 0; step < 5; ++step) {
        std::printf("    %-14s %.2f ms\n", stepNames[step], steps[step]);
    }
    std::printf("H.265 decoding of the same frames, one thread: median %.2f ms, mean %.2f ms\n", decode.median,
                decode.mean);
    std::printf("ratio drawing / decoding (mean): %.2f\n", draw.mean / decode.mean);
    return 0;
}

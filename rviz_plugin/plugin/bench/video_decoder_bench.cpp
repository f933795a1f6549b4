// Decoding throughput and latency of the video pipeline, against the FFmpeg command line on the same
// stream with the same thread count.
//
//   video_decoder_bench [--frames N] [--latency-seconds S]
//
// 1. Throughput: one 1080p H.265 stream (libx265, ultrafast, key frame every 30) fed to a
//    VideoDecoder as custom/Video messages, timed from the first message to the last picture in a
//    YuvTextureData; then "ffmpeg -threads 4 -i same.h265 -f null -" on the same file. Ratio = ours / ffmpeg.
// 2. Latency: four 1080p30 cameras published through a ROS master on loopback; for each picture the
//    time from publish to the end of its conversion for texture upload (BGR, 960x540 window).
#include "../test/support/processes.h"
#include "../test/support/ros_test_main.h"
#include "decoder_switch/video_decoder.h"
#include "frames/image_cache_node.h"
#include "frames/yuv_texture_data.h"
#include "simulated_car/h265_encoder.h"

#include <QCoreApplication>
#include <ros/callback_queue.h>
#include <ros/ros.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <mutex>
#include <thread>

using Clock = std::chrono::steady_clock;
using rviz_plugin::VideoDecoder;
using rviz_plugin::YuvTextureData;

namespace {

constexpr int width = 1920;
constexpr int height = 1080;
constexpr int fps = 30;
constexpr int ffmpegThreads = 4;  // the software decoder's thread count

// Counts the pictures of one decoder; with convert, also converts each as the renderer would and
// records its latency. One per decoder: each has its own scaler.
class CountingNode : public rviz_plugin::ImageCacheNode {
public:
    explicit CountingNode(bool convert, int number = 1000) : convert(convert), number(number) {}
    void SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame) override
    {
        if (convert) {
            // What the renderer does before upload: BGR at the window's size.
            std::vector<uint8_t> buffer;
            std_msgs::Header header;
            core.windowWidth = 960;
            core.windowHeight = 540;
            frame->ConvertToTextureImage(buffer, header, core);
            const double latency = (ros::Time::now() - frame->GetFrameHeader().stamp).toSec() * 1000.0;
            std::lock_guard<std::mutex> lock(mutex);
            latencies.push_back(latency);
        }
        ++count;
    }
    int GetIppNodeNo() const override { return number; }
    void RegisterFrameArrayNode(const QString& /*topic*/, bool /*asOwnNode*/) override {}

    std::atomic<int> count{0};
    std::vector<double> latencies;
    std::mutex mutex;

private:
    bool convert;
    int number;
    rviz_plugin::TransformCore core;
};

boost::shared_ptr<custom::Video> Message(const std::vector<uint8_t>& data, uint32_t seq)
{
    auto message = boost::make_shared<custom::Video>();
    message->header.seq = seq;
    message->header.stamp = ros::Time::now();
    message->data = data;
    return message;
}

double Percentile(std::vector<double> values, double fraction)
{
    if (values.empty()) {
        return 0.0;
    }
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, static_cast<std::size_t>(fraction * (values.size() - 1) + 0.5))];
}

double OurFramesPerSecond(const std::vector<std::vector<uint8_t>>& units, ros::CallbackQueue& queue)
{
    VideoDecoder decoder;
    decoder.Initialize("bench_throughput", &queue, custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    CountingNode node(false);
    decoder.AddIppNode(&node);
    const auto start = Clock::now();
    int sent = 0;
    for (const auto& unit : units) {
        // Keep the queue well below its limit of 30 so that nothing is dropped.
        while (sent - node.count > 20) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        decoder.RecvVideoMsg(Message(unit, static_cast<uint32_t>(sent++)));
    }
    const int expected = static_cast<int>(units.size()) - 8;  // frame threads hold the last few pictures
    while (node.count < expected) {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    decoder.RemoveIppNode(1000);
    return node.count / seconds;
}

double FfmpegFramesPerSecond(const std::string& file, int frames)
{
    const std::string command = "ffmpeg -loglevel error -threads " + std::to_string(ffmpegThreads) + " -i " + file +
                                " -f null - > /dev/null 2>&1";
    const auto start = Clock::now();
    if (std::system(command.c_str()) != 0) {
        return 0.0;
    }
    return frames / std::chrono::duration<double>(Clock::now() - start).count();
}

void Latency(const std::vector<std::vector<uint8_t>>& units, ros::CallbackQueue& queue, double seconds)
{
    constexpr int cameras = 4;
    std::vector<std::unique_ptr<VideoDecoder>> decoders;
    std::vector<std::unique_ptr<CountingNode>> nodes;
    ros::NodeHandle handle;
    std::vector<ros::Publisher> publishers;
    for (int camera = 0; camera < cameras; ++camera) {
        const std::string topic = "bench_camera_" + std::to_string(camera);
        decoders.push_back(std::make_unique<VideoDecoder>());
        decoders.back()->Initialize(QString::fromStdString(topic), &queue, custom::DecoderInfo::SOFTWARE_DECODING_MODE);
        decoders.back()->AddQueueSizeRecord(30);
        decoders.back()->Subscribe();
        nodes.push_back(std::make_unique<CountingNode>(true, camera));
        decoders.back()->AddIppNode(nodes.back().get());
        publishers.push_back(handle.advertise<custom::Video>("/" + topic, 30));
    }
    test_support::WaitFor(
        [&]() {
            return std::all_of(publishers.begin(), publishers.end(),
                               [](const ros::Publisher& p) { return p.getNumSubscribers() > 0; });
        },
        std::chrono::seconds(5));
    ros::WallRate rate(fps);
    const int ticks = static_cast<int>(seconds * fps);
    for (int tick = 0; tick < ticks; ++tick) {
        for (auto& publisher : publishers) {
            publisher.publish(Message(units[static_cast<std::size_t>(tick) % units.size()], static_cast<uint32_t>(tick)));
        }
        rate.sleep();
    }
    std::this_thread::sleep_for(std::chrono::seconds(1));
    std::vector<double> latencies;
    for (int camera = 0; camera < cameras; ++camera) {
        decoders[static_cast<std::size_t>(camera)]->RemoveIppNode(static_cast<unsigned>(camera));
        std::lock_guard<std::mutex> lock(nodes[static_cast<std::size_t>(camera)]->mutex);
        const auto& own = nodes[static_cast<std::size_t>(camera)]->latencies;
        latencies.insert(latencies.end(), own.begin(), own.end());
    }
    std::printf("latency, 4 x 1080p30 for %.0f s: %zu of %d pictures shown, publish to converted for upload: "
                "median %.1f ms, p99 %.1f ms\n",
                seconds, latencies.size(), ticks * cameras, Percentile(latencies, 0.5), Percentile(latencies, 0.99));
}

} // namespace

int main(int argc, char** argv)
{
    int frames = 300;
    double latencySeconds = 10;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--frames") {
            frames = std::atoi(argv[i + 1]);
        } else if (name == "--latency-seconds") {
            latencySeconds = std::atof(argv[i + 1]);
        }
    }
    return test_support::WithRosMaster(argc, argv, "video_decoder_bench", [&]() {
        QCoreApplication app(argc, argv);
        ros::CallbackQueue queue;
        ros::AsyncSpinner spinner(2, &queue);
        spinner.start();
        std::printf("encoding %d pictures of 1920x1080 with libx265...\n", frames);
        const auto units = simulated_car::EncodeSceneStream(width, height, fps, fps, frames);
        test_support::TempDir work;
        const std::string file = work / "same.h265";
        {
            std::ofstream out(file, std::ios::binary);
            for (const auto& unit : units) {
                out.write(reinterpret_cast<const char*>(unit.data()), static_cast<std::streamsize>(unit.size()));
            }
        }
        const double ours = OurFramesPerSecond(units, queue);
        const double reference = FfmpegFramesPerSecond(file, frames);
        std::printf("throughput, %d pictures 1080p, %d threads: VideoDecoder %.1f fps, ffmpeg CLI %.1f fps, "
                    "ratio %.3f\n",
                    frames, ffmpegThreads, ours, reference, reference > 0 ? ours / reference : 0.0);
        Latency(units, queue, latencySeconds);
        spinner.stop();
        return 0;
    });
}

// Recording and capture figures against the ffmpeg command line in the same run.
//   --part encoder   the encoder and overlay path against ffmpeg encoding the same raw frames with the same
//                    settings (480p, 720p, 1080p; with and without overlay): frames per second and their ratio
//   --part record    one 1080p30 camera with its overlay recorded for --seconds (60): frames in the file
//                    against 30 x seconds, backlog warnings, CPU; then the evaluation's count of 720p channels
//   --part capture   PNG export frames per second against ffmpeg writing the same frames as PNG, and PCD
//                    export MB per second
#include "../test/support/processes.h"
#include "../test/support/qt_events.h"
#include "../test/support/ros_test_main.h"
#include "../test/support/temp_dir.h"

#include "capture_logic/av_frame_thread.h"
#include "capture_logic/point_cloud2_thread.h"
#include "record_video_logic/ffmpeg_filter.h"
#include "record_video_logic/record_data_evaluator.h"
#include "record_video_logic/software_encoder.h"
#include "record_video_logic/vision_data_handler.h"
#include "simulated_car/scene_3d.h"
#include "simulated_car/synthetic_scene.h"

#include <QGuiApplication>

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
constexpr int benchFrames = 90;

double Seconds(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

double CpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// Moving pictures of the simulated scene, as the decoders publish them.
std::vector<custom::AvFrame> Pictures(int width, int height, int count)
{
    const simulated_car::SyntheticScene scene(width, height, 0);
    simulated_car::YuvImage image(width, height);
    std::vector<custom::AvFrame> frames;
    for (int i = 0; i < count; ++i) {
        scene.Render(i / 30.0, image);
        custom::AvFrame frame;
        frame.header.stamp = ros::Time(1000, 0) + ros::Duration(i / 30.0);
        frame.format = 0;
        frame.width = width;
        frame.height = height;
        frame.linesize = {width, (width + 1) / 2, (width + 1) / 2};
        frame.data.resize(3);
        frame.data[0].data = image.y;
        frame.data[1].data = image.u;
        frame.data[2].data = image.v;
        frames.push_back(frame);
    }
    return frames;
}

// A transparent BGRA overlay with boxes and lines, as the overlay node draws it.
custom::AvFrame Overlay(int width, int height)
{
    custom::AvFrame frame;
    frame.format = 28;
    frame.width = width;
    frame.height = height;
    frame.linesize = {width * 4};
    frame.data.resize(1);
    auto& bytes = frame.data[0].data;
    bytes.assign(static_cast<std::size_t>(width) * height * 4, 0);
    for (int box = 0; box < 6; ++box) {
        const int left = width / 8 + box * width / 8;
        const int top = height / 2;
        for (int y = top; y < top + height / 8; ++y) {
            for (int x = left; x < left + width / 12; ++x) {
                const bool edge = y < top + 3 || y >= top + height / 8 - 3 || x < left + 3 || x >= left + width / 12 - 3;
                if (edge) {
                    uint8_t* pixel = &bytes[(static_cast<std::size_t>(y) * width + x) * 4];
                    pixel[1] = 255;
                    pixel[3] = 255;
                }
            }
        }
    }
    return frame;
}

void WriteRaw(const std::string& file, const std::vector<custom::AvFrame>& frames)
{
    std::ofstream out(file, std::ios::binary);
    for (const auto& frame : frames) {
        for (const auto& plane : frame.data) {
            out.write(reinterpret_cast<const char*>(plane.data.data()), static_cast<std::streamsize>(plane.data.size()));
        }
    }
}

double OursFps(const std::vector<custom::AvFrame>& frames, const custom::AvFrame* overlay, const std::string& file)
{
    rviz_plugin::SoftwareEncoder encoder;
    const int width = frames.front().width;
    const int height = frames.front().height;
    encoder.Initialize(file, width, height);
    encoder.InitWriteHeader();
    rviz_plugin::FfmpegFilter filter;
    filter.Initialize({width, height});
    const auto begin = Clock::now();
    for (const auto& frame : frames) {
        if (overlay != nullptr) {
            if (filter.OverlayMsg(frame, *overlay) == rviz_plugin::FfmpegFilter::pictureReady) {
                encoder.Encode(filter.GetOutputFrame());
            }
        } else {
            encoder.Encode(frame);
        }
    }
    encoder.Finished();
    return static_cast<double>(frames.size()) / Seconds(begin);
}

double CliFps(int width, int height, const std::string& raw, const std::string& overlayRaw, int count,
              const std::string& file)
{
    const std::string size = std::to_string(width) + "x" + std::to_string(height);
    std::vector<std::string> command = {"ffmpeg", "-v", "error", "-y", "-f", "rawvideo", "-pix_fmt", "yuv420p",
                                        "-s", size, "-r", "30", "-i", raw};
    if (!overlayRaw.empty()) {
        command.insert(command.end(), {"-f", "rawvideo", "-pix_fmt", "bgra", "-s", size, "-r", "30", "-stream_loop",
                                       "-1", "-i", overlayRaw, "-filter_complex", "[0:v][1:v]overlay=0:0",
                                       "-frames:v", std::to_string(count)});
    }
    command.insert(command.end(), {"-c:v", "libx264", "-preset", "veryfast", "-g", "10", "-bf", "0", "-qmin", "2",
                                   "-qmax", "6", "-b:v", std::to_string(rviz_plugin::Encoder::BitRateForSize(width, height)),
                                   "-pix_fmt", "yuv420p", file});
    const auto begin = Clock::now();
    test_support::RunCommand(command, {}, std::chrono::seconds(300));
    return count / Seconds(begin);
}

void EncoderPart()
{
    test_support::TempDir work;
    std::printf("%-8s %-8s %10s %10s %7s\n", "size", "overlay", "ours fps", "cli fps", "ratio");
    for (const auto& [width, height] : {std::pair<int, int>{854, 480}, {1280, 720}, {1920, 1080}}) {
        const auto frames = Pictures(width, height, benchFrames);
        const custom::AvFrame overlay = Overlay(width, height);
        const std::string raw = work / "raw.yuv";
        const std::string overlayRaw = work / "overlay.bgra";
        WriteRaw(raw, frames);
        WriteRaw(overlayRaw, {overlay});
        for (const bool withOverlay : {false, true}) {
            const double ours = OursFps(frames, withOverlay ? &overlay : nullptr, work / "ours.mp4");
            const double cli = CliFps(width, height, raw, withOverlay ? overlayRaw : "", benchFrames, work / "cli.mp4");
            std::printf("%-8s %-8s %10.1f %10.1f %7.2f\n", (std::to_string(height) + "p").c_str(),
                        withOverlay ? "yes" : "no", ours, cli, ours / cli);
        }
    }
}

// Publishes one prebuilt camera message at 30 Hz (in process: the pointer itself travels).
class CameraFeed {
public:
    CameraFeed(const std::string& topic, int width, int height)
        : publisher(node.advertise<custom::AvFrameArray>(topic, 10)), message(boost::make_shared<custom::AvFrameArray>())
    {
        message->AvFrameArray = {Pictures(width, height, 1).front(), Overlay(width, height)};
    }
    ~CameraFeed() { Stop(); }
    void Run()
    {
        running = true;
        thread = std::thread([this] {
            auto next = Clock::now();
            while (running) {
                auto copy = boost::make_shared<custom::AvFrameArray>(*message);
                copy->header.stamp = ros::Time::now();
                publisher.publish(copy);
                next += std::chrono::microseconds(33333);
                std::this_thread::sleep_until(next);
            }
        });
    }
    void Stop()
    {
        running = false;
        if (thread.joinable()) {
            thread.join();
        }
    }

private:
    ros::NodeHandle node;
    ros::Publisher publisher;
    boost::shared_ptr<custom::AvFrameArray> message;
    std::atomic<bool> running{false};
    std::thread thread;
};

void RecordPart(int seconds)
{
    test_support::TempDir work;
    CameraFeed camera("/bench_frameArray", 1920, 1080);
    camera.Run();
    rviz_plugin::VisionDataHandler recorder;
    recorder.Initialize("/bench_frameArray");
    rviz_plugin::RecordSettings settings;
    settings.folder = work.Path().string();
    settings.width = 1920;
    settings.height = 1080;
    recorder.ReadyConfig(settings);
    recorder.StartThread();
    test_support::WaitFor([&] { return recorder.GetDataResolution().first == 1920; }, std::chrono::seconds(10));
    std::string log;
    double wall = 0;
    double cpu = 0;
    std::string file;
    testing::internal::CaptureStdout();
    const double cpuBegin = CpuSeconds();
    const auto begin = Clock::now();
    recorder.StartRecordData();
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    file = recorder.GetFileName();
    recorder.ShutDown();
    wall = Seconds(begin);
    cpu = CpuSeconds() - cpuBegin;
    log = testing::internal::GetCapturedStdout();
    camera.Stop();
    const std::string probe = work / "probe.txt";
    test_support::RunCommand({"ffprobe", "-v", "error", "-count_frames", "-select_streams", "v:0", "-show_entries",
                              "stream=nb_read_frames", "-of", "csv=p=0", file},
                             {}, std::chrono::seconds(120), probe);
    const long frames = std::stol(test_support::ReadLines(probe).at(0));
    std::size_t stacked = 0;
    for (std::size_t at = log.find("is stacked."); at != std::string::npos; at = log.find("is stacked.", at + 1)) {
        ++stacked;
    }
    std::printf("1080p30 with overlay, %.1f s recorded: %ld frames in the file, %.0f expected (%+.2f %%), %zu "
                "stacked warnings, CPU %.0f %% of a core (publisher included)\n",
                wall, frames, 30 * wall, 100.0 * (frames - 30 * wall) / (30 * wall), stacked, 100 * cpu / wall);
}

void EvaluationPart(int channels)
{
    test_support::TempDir work;
    std::vector<std::unique_ptr<CameraFeed>> cameras;
    std::vector<std::string> topics;
    for (int i = 0; i < channels; ++i) {
        topics.push_back("/bench" + std::to_string(i) + "_frameArray");
        cameras.push_back(std::make_unique<CameraFeed>(topics.back(), 1280, 720));
        cameras.back()->Run();
    }
    std::this_thread::sleep_for(std::chrono::seconds(1));
    rviz_plugin::RecordDataEvaluator evaluator;
    bool done = false;
    QObject::connect(&evaluator, &rviz_plugin::RecordDataEvaluator::EvaluateFinished, [&done] { done = true; });
    const auto begin = Clock::now();
    testing::internal::CaptureStdout();
    evaluator.Start(false, work.Path().string(), topics, {1280, 720});
    test_support::ServeEvents([&done] { return done; }, std::chrono::seconds(120));
    testing::internal::GetCapturedStdout();
    std::printf("evaluation of %d 720p channels: %d recommended (%.1f s)\n", channels, evaluator.GetRetEvaNums(),
                Seconds(begin));
}

void CapturePart()
{
    test_support::TempDir work;
    const int count = 30;
    const auto frames = Pictures(1280, 720, count);
    std::vector<boost::shared_ptr<const custom::AvFrame>> kept;
    for (const auto& frame : frames) {
        kept.push_back(boost::make_shared<custom::AvFrame>(frame));
    }
    rviz_plugin::AvFrameThread pictures(QString::fromStdString(work / "ours"), "/bench_avFrame", kept);
    auto begin = Clock::now();
    pictures.start();
    pictures.wait();
    const double ours = count / Seconds(begin);
    const std::string raw = work / "raw.yuv";
    WriteRaw(raw, frames);
    std::filesystem::create_directories(work / "cli");
    begin = Clock::now();
    test_support::RunCommand({"ffmpeg", "-v", "error", "-y", "-f", "rawvideo", "-pix_fmt", "yuv420p", "-s",
                              "1280x720", "-i", raw, (work / "cli") + "/frame_%03d.png"},
                             {}, std::chrono::seconds(300));
    const double cli = count / Seconds(begin);
    std::printf("PNG export, 720p: ours %.1f frames/s, ffmpeg %.1f frames/s, ratio %.2f\n", ours, cli, ours / cli);

    const simulated_car::SyntheticScene front(640, 360, 0);
    const simulated_car::Scene3d scene(front);
    std::vector<boost::shared_ptr<const sensor_msgs::PointCloud2>> clouds;
    std::size_t bytes = 0;
    for (int i = 0; i < 10; ++i) {
        std_msgs::Header header;
        header.stamp = ros::Time(1000 + i, 0);
        auto cloud = boost::make_shared<sensor_msgs::PointCloud2>(scene.LidarCloud(i * 0.1, header));
        bytes += cloud->data.size();
        clouds.push_back(cloud);
    }
    rviz_plugin::PointCloud2Thread pcd(QString::fromStdString(work / "ours"), "/lidar_points", clouds);
    begin = Clock::now();
    pcd.start();
    pcd.wait();
    const double seconds = Seconds(begin);
    std::printf("PCD export: %zu clouds of %u points, %.1f MB/s of cloud data (%.1f clouds/s)\n", clouds.size(),
                clouds.front()->width * clouds.front()->height, bytes / seconds / 1e6, clouds.size() / seconds);
}

} // namespace

int main(int argc, char** argv)
{
    std::string part = "all";
    int seconds = 60;
    int channels = 6;
    for (int i = 1; i + 1 < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--part") {
            part = argv[++i];
        } else if (option == "--seconds") {
            seconds = std::stoi(argv[++i]);
        } else if (option == "--channels") {
            channels = std::stoi(argv[++i]);
        }
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    return test_support::WithRosMaster(argc, argv, "recording_bench", [&] {
        if (part == "all" || part == "encoder") {
            EncoderPart();
        }
        if (part == "all" || part == "record") {
            RecordPart(seconds);
            EvaluationPart(channels);
        }
        if (part == "all" || part == "capture") {
            CapturePart();
        }
        return 0;
    });
}

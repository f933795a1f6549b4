// Recorders against a real master: frame arrays published in this process, files checked with ffprobe and
// decoded pictures, the beat, the "no image" picture, a backlog, the preview and a folder that cannot be written.
#include "record_test_pictures.h"

#include "../support/qt_events.h"
#include "../support/ros_test_main.h"

#include "frames/custom_frame_array_data.h"
#include "frames/rgba_texture_data.h"
#include "frames/yuv_texture_data.h"
#include "record_video_logic/record_data_evaluator.h"
#include "record_video_logic/record_data_manager.h"
#include "record_video_logic/vision_data_handler.h"

#include <QGuiApplication>
#include <QSignalSpy>

#include <ros/ros.h>

#include <atomic>
#include <filesystem>
#include <random>
#include <thread>

#include <unistd.h>

extern "C" {
#include <libavutil/frame.h>
}

using rviz_plugin::DataRecorderBase;
using rviz_plugin::EncoderType;
using rviz_plugin::RecordSettings;
using rviz_plugin::VisionDataHandler;

namespace {

constexpr int width = 320;
constexpr int height = 240;

boost::shared_ptr<custom::AvFrameArray> CameraMessage(uint8_t luma, bool withOverlay)
{
    auto message = boost::make_shared<custom::AvFrameArray>();
    message->header.stamp = ros::Time(1700000000, 500);
    message->AvFrameArray.resize(2);
    message->AvFrameArray[0] = record_test::GreyPicture(width, height, luma);
    message->AvFrameArray[1].format = -1;
    if (withOverlay) {
        message->AvFrameArray[1] = record_test::OverlayWithBox(width, height, 100, 60, 80);
    }
    return message;
}

// Publishes camera messages at 15 a second until stopped, or one only.
class Camera {
public:
    explicit Camera(const std::string& topic) : publisher(node.advertise<custom::AvFrameArray>(topic, 10)) {}
    ~Camera() { Stop(); }
    void Run(bool withOverlay)
    {
        running = true;
        thread = std::thread([this, withOverlay] {
            while (running) {
                publisher.publish(CameraMessage(200, withOverlay));
                std::this_thread::sleep_for(std::chrono::milliseconds(66));
            }
        });
    }
    void PublishOnce() { publisher.publish(CameraMessage(200, false)); }
    void Stop()
    {
        running = false;
        if (thread.joinable()) {
            thread.join();
        }
    }
    bool Listened() const { return publisher.getNumSubscribers() > 0; }

private:
    ros::NodeHandle node;
    ros::Publisher publisher;
    std::atomic<bool> running{false};
    std::thread thread;
};

RecordSettings Settings(const std::string& folder, EncoderType type = EncoderType::Software)
{
    RecordSettings settings;
    settings.folder = folder;
    settings.width = width;
    settings.height = height;
    settings.encoderType = type;
    return settings;
}

bool IsRed(QRgb pixel)
{
    return qRed(pixel) > 200 && qGreen(pixel) < 70 && qBlue(pixel) < 70;
}

// Starts a recorder on topic and waits until it holds a message (or until it listens, when none comes).
void Prepare(DataRecorderBase& recorder, const std::string& topic, const RecordSettings& settings, Camera& camera)
{
    recorder.Initialize(topic);
    ASSERT_TRUE(recorder.ReadyConfig(settings));
    recorder.StartThread();
    ASSERT_TRUE(test_support::WaitFor([&] { return camera.Listened(); }, std::chrono::seconds(10)));
}

// Spends the encoding thread's time slowly, so that beats wait.
class SlowRecorder : public VisionDataHandler {
protected:
    void Recording() override
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        VisionDataHandler::Recording();
    }
};

} // namespace

TEST(VisionDataHandler, RecordingHasOneFramePerBeatWithTheOverlayAndTheCameraInItsName)
{
    test_support::TempDir folder;
    Camera camera("/front_frameArray");
    camera.Run(true);
    VisionDataHandler recorder;
    // No NVIDIA device here: the recorder falls back to the software encoder.
    Prepare(recorder, "/front_frameArray", Settings(folder.Path().string(), EncoderType::Nvidia), camera);
    EXPECT_EQ(recorder.GetEncoderType(), EncoderType::Software);
    ASSERT_TRUE(test_support::WaitFor([&] { return recorder.GetDataResolution().first == width; },
                                      std::chrono::seconds(10)));
    recorder.StartRecordData();
    ASSERT_TRUE(recorder.GetIsStartSuccess());
    EXPECT_TRUE(recorder.IsRecording());
    const auto begin = std::chrono::steady_clock::now();
    std::this_thread::sleep_for(std::chrono::milliseconds(2000));
    const std::string file = recorder.GetFileName();
    recorder.ShutDown();
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    camera.Stop();

    EXPECT_EQ(file, folder / "front_1700000000-500.mp4");
    EXPECT_FALSE(recorder.IsRecording());
    const long long frames = recorder.GetEncodedFrames();
    EXPECT_NEAR(static_cast<double>(frames), seconds * 30, 4.0);
    EXPECT_GT(recorder.GetEncodingDuration(), 0.0);
    EXPECT_EQ(record_test::ProbeVideo(file), "h264," + std::to_string(width) + "," + std::to_string(height) +
                                                 ",30/1," + std::to_string(frames));
    const QImage picture = record_test::DecodedPicture(file, static_cast<int>(frames) - 1, folder / "last.png");
    ASSERT_FALSE(picture.isNull());
    EXPECT_TRUE(IsRed(picture.pixel(140, 100)));
    EXPECT_GT(qGray(picture.pixel(20, 20)), 180);
}

TEST(VisionDataHandler, ASilentCameraIsRecordedAsTheNoImagePicture)
{
    test_support::TempDir folder;
    Camera camera("/silent_frameArray");
    VisionDataHandler recorder;
    Prepare(recorder, "/silent_frameArray", Settings(folder.Path().string()), camera);
    camera.PublishOnce();
    ASSERT_TRUE(test_support::WaitFor([&] { return recorder.GetDataResolution().first == width; },
                                      std::chrono::seconds(10)));
    recorder.StartRecordData();
    ASSERT_TRUE(recorder.GetIsStartSuccess());
    std::this_thread::sleep_for(std::chrono::milliseconds(1800));
    const std::string file = recorder.GetFileName();
    recorder.ShutDown();
    const int frames = static_cast<int>(recorder.GetEncodedFrames());
    ASSERT_GT(frames, 40);
    const QImage first = record_test::DecodedPicture(file, 0, folder / "first.png");
    const QImage last = record_test::DecodedPicture(file, frames - 1, folder / "last.png");
    ASSERT_FALSE(first.isNull());
    ASSERT_FALSE(last.isNull());
    EXPECT_GT(qGray(first.pixel(10, 10)), 180);      // the camera's picture while it was fresh
    EXPECT_NEAR(qGray(last.pixel(10, 10)), 40, 15);  // the dark "no image" picture after a second of silence
}

TEST(VisionDataHandler, ABacklogOfBeatsIsReportedAsStacked)
{
    test_support::TempDir folder;
    Camera camera("/busy_frameArray");
    camera.Run(false);
    SlowRecorder recorder;
    Prepare(recorder, "/busy_frameArray", Settings(folder.Path().string()), camera);
    ASSERT_TRUE(test_support::WaitFor([&] { return recorder.GetDataResolution().first == width; },
                                      std::chrono::seconds(10)));
    const std::string log = test_support::Console([&] {
        recorder.StartRecordData();
        std::this_thread::sleep_for(std::chrono::milliseconds(1000));
        recorder.CloseRecordData();
        recorder.ShutDown();
    });
    camera.Stop();
    EXPECT_NE(log.find("The encoding queue of topic /busy_frameArray is stacked."), std::string::npos);
}

TEST(VisionDataHandler, AFullDiskEndsOnlyThatRecorderAndWhatWasWrittenPlays)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "mounting a small file system needs root";
    }
    test_support::TempDir folder;
    const std::string small = folder / "small";
    std::filesystem::create_directories(small);
    ASSERT_EQ(test_support::RunCommand({"mount", "-t", "tmpfs", "-o", "size=2m", "tmpfs", small}), 0);
    const std::shared_ptr<void> unmount(nullptr, [&small](void*) { test_support::RunCommand({"umount", small}); });
    // Noise does not compress: the small disk fills within a second or two.
    ros::NodeHandle node;
    ros::Publisher publisher = node.advertise<custom::AvFrameArray>("/noisy_frameArray", 10);
    std::atomic<bool> running{true};
    std::thread camera([&] {
        std::mt19937 random(7);
        while (running) {
            auto message = CameraMessage(100, false);
            for (auto& byte : message->AvFrameArray[0].data[0].data) {
                byte = static_cast<uint8_t>(random());
            }
            publisher.publish(message);
            std::this_thread::sleep_for(std::chrono::milliseconds(33));
        }
    });
    VisionDataHandler full;
    VisionDataHandler roomy;
    for (auto* recorder : {&full, &roomy}) {
        recorder->Initialize("/noisy_frameArray");
        ASSERT_TRUE(recorder->ReadyConfig(Settings(recorder == &full ? small : folder.Path().string())));
        recorder->StartThread();
    }
    ASSERT_TRUE(test_support::WaitFor([&] { return full.GetDataResolution().first == width &&
                                                   roomy.GetDataResolution().first == width; },
                                      std::chrono::seconds(10)));
    const std::string log = test_support::Console([&] {
        full.StartRecordData();
        roomy.StartRecordData();
        ASSERT_TRUE(full.GetIsStartSuccess());
        // The failed recorder shuts itself down on this thread's event loop.
        EXPECT_TRUE(test_support::ServeEvents([&] { return !full.IsRecording(); }, std::chrono::seconds(20)));
        EXPECT_TRUE(roomy.IsRecording());
    });
    const std::string fullFile = full.GetFileName();
    const std::string roomyFile = roomy.GetFileName();
    roomy.ShutDown();
    running = false;
    camera.join();
    EXPECT_NE(log.find("Failed to write AVPacket. FFmpeg error type: "), std::string::npos) << log;
    EXPECT_NE(log.find("The frame of /noisy_frameArray encode failed."), std::string::npos);
    // What reached the small disk before it filled still plays.
    // (The decoder's complaints about the cut end are left out.)
    const std::string probed = record_test::ProbeVideo(fullFile, "quiet");
    ASSERT_EQ(probed.rfind("h264,320,240,30/1,", 0), 0u) << probed;
    EXPECT_GE(std::stoi(probed.substr(probed.rfind(',') + 1)), 10) << probed;
    EXPECT_EQ(record_test::ProbeVideo(roomyFile).rfind("h264,320,240,30/1,", 0), 0u);
}

TEST(RecordDataManager, PreviewShowsEachSourceOrGivesUpAfterFifteenRounds)
{
    Camera camera("/preview_frameArray");
    camera.Run(true);
    rviz_plugin::RecordDataManager manager;
    manager.Initialize();
    ASSERT_TRUE(test_support::WaitFor(
        [&] { return manager.GetTopicTypeMap().count("/preview_frameArray") == 1; }, std::chrono::seconds(10)));
    EXPECT_EQ(manager.GetTopicTypeMap().at("/preview_frameArray"), "custom/AvFrameArray");
    QSignalSpy finished(&manager, &rviz_plugin::RecordDataManager::PreviewDataFinished);
    QSignalSpy capturing(&manager, &rviz_plugin::RecordDataManager::PreviewDataCapturing);
    manager.StartPreview({"/preview_frameArray"});
    ASSERT_TRUE(test_support::ServeEvents([&] { return finished.count() == 1; }, std::chrono::seconds(10)));
    const QImage preview = manager.GetPreviewImage("/preview_frameArray");
    ASSERT_EQ(preview.size(), QSize(width, height));
    EXPECT_TRUE(IsRed(preview.pixel(140, 100)));
    EXPECT_GT(qGray(preview.pixel(20, 20)), 180);
    camera.Stop();

    // Nothing on the topic: 15 rounds of 300 ms, then -1.
    finished.clear();
    capturing.clear();
    const auto begin = std::chrono::steady_clock::now();
    manager.StartPreview({"/nobody_frameArray"});
    ASSERT_TRUE(test_support::ServeEvents([&] { return finished.count() == 1; }, std::chrono::seconds(10)));
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    EXPECT_NEAR(seconds, 4.5, 0.6);
    ASSERT_FALSE(capturing.isEmpty());
    EXPECT_EQ(capturing.last().at(0).toInt(), -1);
    EXPECT_EQ(capturing.last().at(1).toInt(), 1);
    EXPECT_EQ(capturing.first().at(0).toInt(), 0);
    manager.CloseRecord();
}

TEST(RecordDataManager, AFolderThatCannotBeWrittenStopsOnlyItsRecorders)
{
    test_support::TempDir folder;
    Camera camera("/left_frameArray");
    camera.Run(false);
    rviz_plugin::RecordDataManager manager;
    manager.Initialize();
    manager.SetTopicResolutionMap({width, height});
    manager.SetTopicPerformanceVec({"/left_frameArray"});
    const std::string log = test_support::Console([&] {
        manager.StartRecord(folder / "missing/task", false, false, {});
    });
    EXPECT_FALSE(manager.IsRecording());
    EXPECT_NE(log.find("Failed to start a recorder for topic /left_frameArray."), std::string::npos);
    EXPECT_NE(log.find("Failed to initialize the encoder: File not opened."), std::string::npos);

    manager.StartRecord(folder.Path().string(), true, false, {});
    EXPECT_TRUE(manager.IsRecording());
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    const auto files = manager.GetRecordedFiles();
    manager.CloseRecord();
    camera.Stop();
    ASSERT_EQ(files.size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(files.begin()->second));
}

TEST(RecordDataEvaluator, OneTopicIsOneRoundOfTestRecordingThatLeavesNoFile)
{
    test_support::TempDir folder;
    Camera camera("/evaluated_frameArray");
    camera.Run(true);
    rviz_plugin::RecordDataEvaluator evaluator;
    QSignalSpy finished(&evaluator, &rviz_plugin::RecordDataEvaluator::EvaluateFinished);
    QSignalSpy progress(&evaluator, &rviz_plugin::RecordDataEvaluator::EvaluateProgress);
    const auto begin = std::chrono::steady_clock::now();
    const std::string log = test_support::Console([&] {
        evaluator.Start(false, folder.Path().string(), {"/evaluated_frameArray"}, {width, height});
        ASSERT_TRUE(test_support::ServeEvents([&] { return finished.count() == 1; }, std::chrono::seconds(15)));
    });
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    camera.Stop();
    EXPECT_NE(log.find("The CPU usage before video recording evaluation is "), std::string::npos);
    // 60 samples 50 ms apart: one round of about three seconds.
    EXPECT_GT(seconds, 2.9);
    EXPECT_LT(seconds, 8.0);
    const bool passed = finished.first().at(0).toBool();
    EXPECT_EQ(evaluator.GetRetEvaNums(), passed ? 1 : 0);
    EXPECT_EQ(evaluator.GetAvgEvaluationTimes().count("/evaluated_frameArray"), 1u);
    if (passed) {
        EXPECT_EQ(evaluator.GetTopicEncoderMap().at("/evaluated_frameArray"), EncoderType::Software);
    }
    ASSERT_GE(progress.count(), 2);
    EXPECT_EQ(progress.first().at(0).toInt(), 0);
    EXPECT_EQ(progress.last().at(0).toInt(), 100);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(CustomFrameArrayData, PictureAndOverlayGoOutTogetherOnlyToListenersInThisProcess)
{
    rviz_plugin::CustomFrameArrayData data;
    data.Initialize();
    data.RegisterPublishNode("...", -1);
    EXPECT_EQ(data.GetPublishTopic(), "");
    data.RegisterPublishNode("rear", 3);
    EXPECT_EQ(data.GetPublishTopic(), "/rear_frameArray_3");
    data.RegisterPublishNode("rear", -1);
    EXPECT_EQ(data.GetPublishTopic(), "/rear_frameArray");

    AVFrame* decoded = av_frame_alloc();
    decoded->width = 64;
    decoded->height = 48;
    decoded->format = AV_PIX_FMT_YUV420P;
    ASSERT_GE(av_frame_get_buffer(decoded, 0), 0);
    auto yuv = std::make_shared<rviz_plugin::YuvTextureData>();
    yuv->SetFrameData(decoded);
    std_msgs::Header header;
    header.stamp = ros::Time(12, 34);
    yuv->SetFrameHeader(header);
    auto image = boost::make_shared<sensor_msgs::Image>();
    image->width = 64;
    image->height = 48;
    image->data.assign(64 * 48 * 4, 7);
    auto rgba = std::make_shared<rviz_plugin::RgbaTextureData>(image);

    std::atomic<int> received{0};
    boost::shared_ptr<const custom::AvFrameArray> last;
    std::mutex mutex;
    ros::NodeHandle node;
    ros::Subscriber subscriber = node.subscribe<custom::AvFrameArray>(
        "/rear_frameArray", 10, [&](const boost::shared_ptr<const custom::AvFrameArray>& message) {
            std::lock_guard<std::mutex> lock(mutex);
            last = message;
            ++received;
        });
    ros::AsyncSpinner spinner(1);
    spinner.start();
    data.PublishMsgByFrameArray(yuv, rgba);
    ASSERT_TRUE(test_support::WaitFor([&] { return received > 0; }, std::chrono::seconds(5)));
    {
        std::lock_guard<std::mutex> lock(mutex);
        ASSERT_EQ(last->AvFrameArray.size(), 2u);
        EXPECT_EQ(last->header.stamp, ros::Time(12, 34));
        EXPECT_EQ(last->AvFrameArray[0].width, 64);
        EXPECT_EQ(last->AvFrameArray[0].format, 0);
        EXPECT_EQ(last->AvFrameArray[0].data.size(), 3u);
        EXPECT_EQ(last->AvFrameArray[1].format, 28);
        EXPECT_EQ(last->AvFrameArray[1].linesize, std::vector<int32_t>{64 * 4});
        EXPECT_EQ(last->AvFrameArray[1].data[0].data.size(), 64u * 48 * 4);
    }
    // Without a listener nothing is filled or sent.
    subscriber.shutdown();
    const int before = received;
    data.PublishMsgByFrameArray(yuv, nullptr);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(received, before);
    spinner.stop();
    av_frame_free(&decoded);
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QGuiApplication::setAttribute(Qt::AA_Use96Dpi);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    return test_support::WithRosMaster(argc, argv, "test_recorders", [] { return RUN_ALL_TESTS(); });
}

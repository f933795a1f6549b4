// Decoding of real H.265 made by the test (libx265 through libavcodec): the decoder family, the
// decoding pipeline's drop and resync rules, the hardware failure paths, and a subscription
// through a ROS master on loopback.
#include "../support/processes.h"
#include "../support/ros_test_main.h"
#include "frames/custom_av_frame_data.h"
#include "decoder_switch/nv_decoder.h"
#include "decoder_switch/qsv_decoder.h"
#include "decoder_switch/software_decoder.h"
#include "decoder_switch/video_decoder.h"
#include "frames/image_cache_node.h"
#include "frames/yuv_texture_data.h"
#include "simulated_car/h265_encoder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <ros/callback_queue.h>
#include <ros/ros.h>

extern "C" {
#include <libavutil/frame.h>
}

#include <sys/resource.h>

#include <atomic>
#include <chrono>
#include <mutex>

using namespace std::chrono_literals;
using test_support::Console;
using rviz_plugin::Decoder;
using rviz_plugin::VideoDecoder;
using rviz_plugin::VideoMessagePtr;
using rviz_plugin::YuvTextureData;

namespace {

constexpr int width = 320;
constexpr int height = 240;
constexpr int fps = 30;

const std::vector<std::vector<uint8_t>>& Stream()
{
    // Two seconds, a key frame every 15 pictures.
    static const auto units = simulated_car::EncodeSceneStream(width, height, fps, 15, 60);
    return units;
}

VideoMessagePtr Message(const std::vector<uint8_t>& data, uint32_t seq)
{
    auto message = boost::make_shared<custom::Video>();
    message->header.seq = seq;
    message->header.stamp = ros::Time(1700000000, seq * 1000000U);
    message->header.frame_id = "camera";
    message->data = data;
    return message;
}

std::unique_ptr<rviz_plugin::SoftwareDecoder> SoftwareDecoder()
{
    auto decoder = std::make_unique<rviz_plugin::SoftwareDecoder>();
    decoder->SetThreadCount(4);
    decoder->Initialize();
    return decoder;
}


// Collects what a decoder hands to an overlay node.
class RecordingNode : public rviz_plugin::ImageCacheNode {
public:
    void SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame) override
    {
        std::lock_guard<std::mutex> lock(mutex);
        frames.push_back(frame);
    }
    int GetIppNodeNo() const override { return 7; }
    void RegisterFrameArrayNode(const QString& /*topic*/, bool /*asOwnNode*/) override {}
    std::size_t Count()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return frames.size();
    }
    std::vector<std::shared_ptr<YuvTextureData>> Frames()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return frames;
    }

private:
    std::mutex mutex;
    std::vector<std::shared_ptr<YuvTextureData>> frames;
};

// The statuses a decoder raised, by name.
class StatusRecorder {
public:
    explicit StatusRecorder(VideoDecoder& decoder)
    {
        QObject::connect(&decoder, &VideoDecoder::SetStatus, &decoder,
                         [this](rviz::StatusProperty::Level level, const QString& name, const QString& text) {
                             std::lock_guard<std::mutex> lock(mutex);
                             statuses[name] = {level, text};
                         },
                         Qt::DirectConnection);
        QObject::connect(&decoder, &VideoDecoder::DeleteStatus, &decoder,
                         [this](const QString& name) {
                             std::lock_guard<std::mutex> lock(mutex);
                             statuses.erase(name);
                         },
                         Qt::DirectConnection);
    }
    bool Has(const QString& name)
    {
        std::lock_guard<std::mutex> lock(mutex);
        return statuses.count(name) > 0;
    }
    std::pair<rviz::StatusProperty::Level, QString> Get(const QString& name)
    {
        std::lock_guard<std::mutex> lock(mutex);
        return statuses[name];
    }

private:
    std::mutex mutex;
    std::map<QString, std::pair<rviz::StatusProperty::Level, QString>> statuses;
};

double ProcessCpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

} // namespace

TEST(SoftwareDecoder, DecodesEveryPictureOfARealStream)
{
    ASSERT_EQ(Stream().size(), 60U);
    ASSERT_FALSE(Stream()[0].empty());
    auto decoder = SoftwareDecoder();
    ASSERT_TRUE(decoder->GetIsInitialized());
    int pictures = 0;
    int waiting = 0;
    for (std::size_t i = 0; i < Stream().size(); ++i) {
        auto frame = std::make_shared<YuvTextureData>();
        const int result = decoder->Decode(Message(Stream()[i], static_cast<uint32_t>(i)), frame);
        ASSERT_TRUE(result == Decoder::decodedPicture || result == Decoder::noPictureYet) << "unit " << i;
        if (result == Decoder::decodedPicture) {
            ++pictures;
            EXPECT_EQ(frame->GetAvFrame()->width, width);
            EXPECT_EQ(frame->GetAvFrame()->height, height);
            EXPECT_EQ(frame->GetAvFrame()->format, AV_PIX_FMT_YUV420P);
        } else {
            ++waiting;
        }
    }
    // Frame threads delay the pictures by a few packets; after that one picture per packet.
    EXPECT_GE(pictures, 55);
    EXPECT_EQ(pictures + waiting, 60);
}

TEST(SoftwareDecoder, EmptyCorruptAndTruncatedUnitsFailAloneAndDecodingGoesOn)
{
    auto decoder = SoftwareDecoder();
    auto frame = std::make_shared<YuvTextureData>();
    const std::string out = Console([&]() { EXPECT_EQ(decoder->Decode(Message({}, 0), frame), Decoder::decodeError); });
    EXPECT_NE(out.find("[Error][KoraVision] encodedFrame.data is nullptr"), std::string::npos) << out;

    std::vector<uint8_t> garbage(4000);
    for (std::size_t i = 0; i < garbage.size(); ++i) {
        garbage[i] = static_cast<uint8_t>(i * 7919U % 251U);
    }
    std::vector<uint8_t> truncated(Stream()[0].begin(), Stream()[0].begin() + Stream()[0].size() / 3);
    Console([&]() {
        for (const auto& bad : {garbage, truncated, std::vector<uint8_t>{0, 0, 0, 1}}) {
            auto target = std::make_shared<YuvTextureData>();
            const int result = decoder->Decode(Message(bad, 1), target);
            EXPECT_TRUE(result == Decoder::decodeError || result == Decoder::noPictureYet ||
                        result == Decoder::decodedPicture);
        }
    });
    // The next key frame brings clean pictures back.
    int pictures = 0;
    Console([&]() {
        for (std::size_t i = 15; i < Stream().size(); ++i) {
            auto target = std::make_shared<YuvTextureData>();
            if (decoder->Decode(Message(Stream()[i], static_cast<uint32_t>(i)), target) == Decoder::decodedPicture &&
                target->GetAvFrame()->width == width) {
                ++pictures;
            }
        }
    });
    EXPECT_GE(pictures, 35);
}

TEST(SoftwareDecoder, ResolutionChangeInMidStreamComesOutAtTheNewSize)
{
    auto decoder = SoftwareDecoder();
    const auto larger = simulated_car::EncodeSceneStream(640, 360, fps, 15, 20);
    std::vector<std::pair<int, int>> sizes;
    for (const auto* stream : {&Stream(), &larger}) {
        for (const auto& unit : *stream) {
            auto frame = std::make_shared<YuvTextureData>();
            if (decoder->Decode(Message(unit, 0), frame) == Decoder::decodedPicture) {
                sizes.emplace_back(frame->GetAvFrame()->width, frame->GetAvFrame()->height);
            }
        }
    }
    ASSERT_FALSE(sizes.empty());
    EXPECT_EQ(sizes.front(), std::make_pair(width, height));
    EXPECT_EQ(sizes.back(), std::make_pair(640, 360));
}

TEST(HardwareDecoders, FailCleanlyWithoutTheirDevice)
{
    rviz_plugin::QsvDecoder qsv;
    std::string out = Console([&]() { EXPECT_EQ(qsv.Initialize(), Decoder::initFailure); });
    EXPECT_FALSE(qsv.GetIsInitialized());
    EXPECT_NE(out.find("[Error][KoraVision] Could not create QSV decoder context. Error code: "), std::string::npos)
        << out;
    qsv.Release();
    qsv.Release();

    rviz_plugin::NvDecoder nvidia;
    nvidia.SetHwDeviceType(AV_HWDEVICE_TYPE_CUDA);
    out = Console([&]() { EXPECT_EQ(nvidia.Initialize(), Decoder::initFailure); });
    EXPECT_FALSE(nvidia.GetIsInitialized());
    EXPECT_TRUE(out.find("Failed to initialize the decoder: HwDeviceCtx. FFmpeg error type: ") != std::string::npos ||
                out.find("Failed to find the hardware configuration.") != std::string::npos)
        << out;

    // A decoder that did not initialise decodes nothing, and says so without touching FFmpeg.
    auto frame = std::make_shared<YuvTextureData>();
    EXPECT_EQ(nvidia.Decode(Message(Stream()[0], 0), frame), Decoder::decodeError);
}

TEST(DecoderErrors, NamesOfFfmpegAndPosixCodes)
{
    rviz_plugin::SoftwareDecoder decoder;
    EXPECT_EQ(decoder.GetErrorMessage(AVERROR(EAGAIN)), "EAGAIN");
    EXPECT_EQ(decoder.GetErrorMessage(AVERROR(ENOSYS)), "ENOSYS");
    EXPECT_EQ(decoder.GetErrorMessage(AVERROR_INVALIDDATA), "INVALIDDATA");
    EXPECT_EQ(decoder.GetErrorMessage(AVERROR_EOF), "EOF");
    EXPECT_EQ(decoder.GetErrorMessage(AVERROR_HTTP_SERVER_ERROR), "HTTP_SERVER_ERROR");
    EXPECT_EQ(decoder.GetErrorMessage(-123456), "UNKNOWN");
    EXPECT_EQ(decoder.GetErrorMessage(0), "UNKNOWN");
}

TEST(VideoQueue, KeyFramesAndTheDropRule)
{
    auto key = Message(Stream()[0], 0);
    auto delta = Message(Stream()[1], 1);
    EXPECT_TRUE(rviz_plugin::VideoFrameRules::IsReceivingKeyFrame(key));
    EXPECT_FALSE(rviz_plugin::VideoFrameRules::IsReceivingKeyFrame(delta));
    EXPECT_FALSE(rviz_plugin::VideoFrameRules::IsReceivingKeyFrame(Message({0, 0, 0, 1}, 2)));

    // 31 frames, key frames at 0 and 15: the first group goes, the queue starts at the second key.
    std::deque<VideoMessagePtr> queue;
    for (int i = 0; i < 31; ++i) {
        queue.push_back(Message(Stream()[static_cast<std::size_t>(i)], static_cast<uint32_t>(i)));
    }
    bool waiting = false;
    EXPECT_TRUE(rviz_plugin::VideoFrameRules::MaintainQueueLength(queue, 30, waiting));
    EXPECT_EQ(queue.size(), 16U);
    EXPECT_EQ(queue.front()->header.seq, 15U);
    EXPECT_FALSE(waiting);

    // No key frame left: the queue ends empty and waits for the next one.
    std::deque<VideoMessagePtr> deltas(31, delta);
    EXPECT_FALSE(rviz_plugin::VideoFrameRules::MaintainQueueLength(deltas, 30, waiting));
    EXPECT_TRUE(deltas.empty());
    EXPECT_TRUE(waiting);

    std::deque<VideoMessagePtr> shortQueue(30, delta);
    waiting = false;
    EXPECT_TRUE(rviz_plugin::VideoFrameRules::MaintainQueueLength(shortQueue, 30, waiting));
    EXPECT_EQ(shortQueue.size(), 30U);
}

class VideoPipeline : public testing::Test {
protected:
    void SetUp() override
    {
        spinner = std::make_unique<ros::AsyncSpinner>(1, &queue);
        spinner->start();
    }
    void TearDown() override { spinner->stop(); }

    std::unique_ptr<VideoDecoder> MakeDecoder(const QString& topic, int mode)
    {
        auto decoder = std::make_unique<VideoDecoder>();
        decoder->Initialize(topic, &queue, mode);
        return decoder;
    }
    static bool Pump(const std::function<bool()>& done, std::chrono::milliseconds timeout)
    {
        return test_support::WaitFor(
            [&]() {
                QCoreApplication::processEvents();
                return done();
            },
            timeout);
    }

    ros::CallbackQueue queue;
    std::unique_ptr<ros::AsyncSpinner> spinner;
};

TEST_F(VideoPipeline, StreamJoinedMidGroupShowsNothingUntilTheFirstKeyFrame)
{
    auto decoder = MakeDecoder("pipeline_resync", custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    ASSERT_TRUE(decoder->IsRunning());
    EXPECT_EQ(decoder->GetResultCode(), custom::DecoderInfo::INIT_SOFTWARE_DECODER_SUCCESS);
    RecordingNode node;
    decoder->AddIppNode(&node);
    // Pictures 5..14 come before any key frame: ignored, not counted.
    for (uint32_t i = 5; i < 15; ++i) {
        decoder->RecvVideoMsg(Message(Stream()[i], i));
    }
    EXPECT_EQ(decoder->GetReceivedFrameCount(), 0U);
    for (uint32_t i = 15; i < 60; ++i) {
        decoder->RecvVideoMsg(Message(Stream()[i], i));
        std::this_thread::sleep_for(2ms);
    }
    EXPECT_EQ(decoder->GetReceivedFrameCount(), 45U);
    ASSERT_TRUE(test_support::WaitFor([&]() { return node.Count() >= 40; }, 10s)) << node.Count();
    const auto frames = node.Frames();
    // Pictures keep the order and stamps of their packets.
    EXPECT_EQ(frames.front()->GetFrameHeader().seq, 15U);
    for (std::size_t i = 1; i < frames.size(); ++i) {
        EXPECT_EQ(frames[i]->GetFrameHeader().seq, frames[i - 1]->GetFrameHeader().seq + 1);
    }
    EXPECT_EQ(frames.front()->GetAvFrame()->width, width);
    decoder->RemoveIppNode(7);
}

// A burst the decoder cannot keep up with on one thread moves it to frame threads at the next
// key frame, and a calm back to one thread; the pictures the old decoder held come out first, so
// none is lost or reordered.
TEST_F(VideoPipeline, BurstMovesToFrameThreadsAndCalmBackWithoutLosingAPicture)
{
    auto decoder = MakeDecoder("pipeline_burst", custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    ASSERT_TRUE(decoder->IsRunning());
    decoder->SetDecodeThreadingSettings({3, 5});
    RecordingNode node;
    decoder->AddIppNode(&node);
    for (uint32_t i = 0; i < 29; ++i) {
        decoder->RecvVideoMsg(Message(Stream()[i], i));
    }
    // Frame threads hold three pictures back until more units come; the one thread before them none.
    ASSERT_TRUE(test_support::WaitFor([&]() { return node.Count() >= 26; }, 10s)) << node.Count();
    // Then the stream at its own pace, on the new decoder.
    for (uint32_t i = 29; i < 60; ++i) {
        decoder->RecvVideoMsg(Message(Stream()[i], i));
        // The unit's picture (or, on frame threads, the one three before) is out: nothing waits.
        ASSERT_TRUE(test_support::WaitFor([&]() { return node.Count() + 2 >= i; }, 5s));
    }
    // Calm from there: one thread again at key frame 45, after the three pictures held back.
    ASSERT_TRUE(test_support::WaitFor([&]() { return node.Count() >= 60; }, 10s)) << node.Count();
    const auto frames = node.Frames();
    for (std::size_t i = 0; i < frames.size(); ++i) {
        EXPECT_EQ(frames[i]->GetFrameHeader().seq, i) << "picture " << i;
        EXPECT_EQ(frames[i]->GetAvFrame()->width, width);
    }
    decoder->RemoveIppNode(7);
}

TEST_F(VideoPipeline, ResetCommandWaitsForTheNextKeyFrame)
{
    auto decoder = MakeDecoder("pipeline_reset", custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    const std::string command = "TcpConnectionIsBrokenResetCurrentCameraDecoder";
    for (uint32_t i = 0; i < 5; ++i) {
        decoder->RecvVideoMsg(Message(Stream()[i], i));
    }
    EXPECT_EQ(decoder->GetReceivedFrameCount(), 5U);
    decoder->RecvVideoMsg(Message(std::vector<uint8_t>(command.begin(), command.end()), 5));
    EXPECT_EQ(decoder->GetReceivedFrameCount(), 5U);
    decoder->RecvVideoMsg(Message(Stream()[6], 6));  // not a key frame: ignored
    EXPECT_EQ(decoder->GetReceivedFrameCount(), 5U);
    decoder->RecvVideoMsg(Message(Stream()[15], 15));
    EXPECT_EQ(decoder->GetReceivedFrameCount(), 6U);
    // 46 bytes that are not the command are video like any other.
    Console([&]() { decoder->RecvVideoMsg(Message(std::vector<uint8_t>(46, 'x'), 16)); });
    EXPECT_EQ(decoder->GetReceivedFrameCount(), 7U);
}

TEST_F(VideoPipeline, HardwareDecodersFailIntoTheirStatusAndStopCounting)
{
    const std::pair<int, int> cases[] = {
        {custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE, custom::DecoderInfo::INIT_INTEL_HARDWARE_DECODER_FAILURE},
        {custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE,
         custom::DecoderInfo::INIT_NVIDIA_HARDWARE_DECODER_FAILURE},
    };
    for (const auto& [mode, code] : cases) {
        std::unique_ptr<VideoDecoder> decoder;
        Console([&]() { decoder = MakeDecoder("pipeline_hardware", mode); });
        EXPECT_EQ(decoder->GetResultCode(), code);
        EXPECT_FALSE(decoder->IsRunning());
        StatusRecorder statuses(*decoder);
        decoder->UpdateDecoderStatus();
        const auto status = statuses.Get("Decoder Status");
        EXPECT_EQ(status.first, rviz::StatusProperty::Error);
        EXPECT_EQ(status.second, VideoDecoder::StatusTexts().value(code));
        for (uint32_t i = 0; i < 20; ++i) {
            decoder->RecvVideoMsg(Message(Stream()[i], i));
        }
        EXPECT_EQ(decoder->GetReceivedFrameCount(), 0U);
    }
    EXPECT_TRUE(VideoDecoder::StatusTexts().value(-2).startsWith(" Failed to create the Intel hardware decoder."));
}

TEST_F(VideoPipeline, SwitchingToABrokenDecoderAndBack)
{
    RecordingNode node;
    auto decoder = MakeDecoder("pipeline_switch", custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    decoder->AddIppNode(&node);
    StatusRecorder statuses(*decoder);
    Console([&]() { decoder->OnUpdateCameraDecoder(custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE); });
    EXPECT_FALSE(decoder->IsRunning());
    EXPECT_EQ(statuses.Get("Decoder Status").first, rviz::StatusProperty::Error);
    decoder->RecvVideoMsg(Message(Stream()[0], 0));
    EXPECT_EQ(decoder->GetReceivedFrameCount(), 0U);

    decoder->OnUpdateCameraDecoder(custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    EXPECT_TRUE(decoder->IsRunning());
    EXPECT_EQ(statuses.Get("Decoder Status").second, " A software decoder is successfully created.");
    for (uint32_t i = 0; i < 30; ++i) {
        decoder->RecvVideoMsg(Message(Stream()[i], i));
    }
    EXPECT_TRUE(test_support::WaitFor([&]() { return node.Count() >= 20; }, 10s));
    // The same choice again changes nothing.
    decoder->OnUpdateCameraDecoder(custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    EXPECT_TRUE(decoder->IsRunning());
    decoder->RemoveIppNode(7);
}

TEST_F(VideoPipeline, ResultGoesOutOnlyAfterAnInquiry)
{
    ros::NodeHandle handle;
    ros::CallbackQueue answers;
    handle.setCallbackQueue(&answers);
    std::vector<int> codes;
    ros::Subscriber subscriber = handle.subscribe<custom::DecoderInfo>(
        "/decoder_information", 30, [&codes](const custom::DecoderInfo::ConstPtr& info) {
            if (info->decoderTopic.data == "pipeline_info") {
                codes.push_back(info->resultCode);
            }
        });
    auto decoder = MakeDecoder("pipeline_info", custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    ASSERT_TRUE(test_support::WaitFor([&]() { return subscriber.getNumPublishers() > 0; }, 5s));
    const auto settle = [&answers]() {
        test_support::WaitFor([&answers]() {
            answers.callAvailable();
            return false;
        }, 300ms);
    };

    // Created and switched without an inquiry: nothing is published.
    Console([&]() { decoder->OnUpdateCameraDecoder(custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE); });
    settle();
    EXPECT_TRUE(codes.empty());

    // An inquiry lets the next result out, once.
    decoder->ResetDecoderInfoStatus();
    decoder->OnUpdateCameraDecoder(custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    decoder->OnSendDecoderInformation();
    settle();
    EXPECT_EQ(codes, std::vector<int>{custom::DecoderInfo::INIT_SOFTWARE_DECODER_SUCCESS});

    // An inquiry with nothing to switch: the current result.
    decoder->ResetDecoderInfoStatus();
    decoder->OnSendDecoderInformation();
    settle();
    EXPECT_EQ(codes.size(), 2U);
}

TEST_F(VideoPipeline, IdleDecodingThreadUsesNoProcessor)
{
    auto decoder = MakeDecoder("pipeline_idle", custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    ASSERT_TRUE(decoder->IsRunning());
    std::this_thread::sleep_for(200ms);
    const double before = ProcessCpuSeconds();
    std::this_thread::sleep_for(1s);
    EXPECT_LT(ProcessCpuSeconds() - before, 0.05);
}

TEST_F(VideoPipeline, SubscribedTopicDecodesAndReportsSilence)
{
    auto decoder = MakeDecoder("pipeline_live", custom::DecoderInfo::SOFTWARE_DECODING_MODE);
    RecordingNode node;
    decoder->AddIppNode(&node);
    StatusRecorder statuses(*decoder);
    decoder->AddQueueSizeRecord(5);
    decoder->AddQueueSizeRecord(20);
    EXPECT_EQ(decoder->GetMaxQueueSizeFromRecord(), 20);
    decoder->Subscribe();
    ASSERT_TRUE(decoder->IsSubscribed());

    ros::NodeHandle publisherNode;
    ros::Publisher publisher = publisherNode.advertise<custom::Video>("/pipeline_live", 60);
    ASSERT_TRUE(test_support::WaitFor([&]() { return publisher.getNumSubscribers() > 0; }, 5s));
    for (uint32_t i = 0; i < 30; ++i) {
        publisher.publish(Message(Stream()[i], i));
        std::this_thread::sleep_for(5ms);
    }
    ASSERT_TRUE(Pump([&]() { return node.Count() >= 20; }, 10s)) << node.Count();
    EXPECT_TRUE(statuses.Get("Topic").second.endsWith(" data frames received")) << statuses.Get("Topic").second.toStdString();

    // The publisher goes quiet: the tick after the one that saw the last frames raises the warning.
    decoder->CheckIfRecvFrameInSecond();
    EXPECT_FALSE(statuses.Has("Data receiving failure"));
    decoder->CheckIfRecvFrameInSecond();
    ASSERT_TRUE(statuses.Has("Data receiving failure"));
    EXPECT_EQ(statuses.Get("Data receiving failure").second, "No data was received in the last 1 second.");
    // It comes back: the warning goes and pictures flow again.
    const std::size_t shown = node.Count();
    for (uint32_t i = 30; i < 60; ++i) {
        publisher.publish(Message(Stream()[i], i));
        std::this_thread::sleep_for(5ms);
    }
    ASSERT_TRUE(Pump([&]() { return node.Count() >= shown + 20; }, 10s));
    decoder->CheckIfRecvFrameInSecond();
    EXPECT_FALSE(statuses.Has("Data receiving failure"));

    decoder->RemoveQueueSizeRecord(20);
    EXPECT_EQ(decoder->GetMaxQueueSizeFromRecord(), 5);
    decoder->Unsubscribe();
    EXPECT_FALSE(decoder->IsSubscribed());
    decoder->RemoveIppNode(7);
}

TEST(CustomAvFrame, PlanesFollowTheTable)
{
    AVFrame* frame = av_frame_alloc();
    frame->width = 64;
    frame->height = 48;
    frame->format = AV_PIX_FMT_YUV420P;
    ASSERT_EQ(av_frame_get_buffer(frame, 0), 0);
    custom::AvFrame message;
    rviz_plugin::FillAvFrameMessage(frame, message);
    ASSERT_EQ(message.data.size(), 3U);
    EXPECT_EQ(message.data[0].data.size(), static_cast<std::size_t>(48 * frame->linesize[0]));
    EXPECT_EQ(message.data[1].data.size(), static_cast<std::size_t>(48 * frame->linesize[1] / 2));
    EXPECT_EQ(message.linesize.size(), 3U);
    frame->format = AV_PIX_FMT_GRAY8;  // not in the table: no plane at all
    rviz_plugin::FillAvFrameMessage(frame, message);
    EXPECT_TRUE(message.data.empty());
    EXPECT_TRUE(message.linesize.empty());
    av_frame_free(&frame);
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "video_decoding_test", [&]() {
        QCoreApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}

// The decoding evaluation's parts without a display: the channel search and its pass rule, the
// stream package, the history file, and the picture conversions it shares with recording.
#include "../support/temp_dir.h"
#include "decoder_switch/evaluate_history.h"
#include "decoder_switch/evaluate_process_data.h"
#include "frames/frame_converter.h"
#include "decoder_switch/image_convert.h"
#include "decoder_switch/video_stream_loader.h"
#include "foundation/path_utils.h"
#include "frames/yuv_texture_data.h"

#include <gtest/gtest.h>

extern "C" {
#include <libavutil/frame.h>
}

#include <chrono>
#include <fstream>
#include <thread>

using rviz_plugin::EvaluateProcessData;
using rviz_plugin::VideoStreamLoader;

namespace {

// Runs a whole search against a machine that keeps up with at most capacity channels.
std::pair<int, int> Search(int capacity)
{
    EvaluateProcessData data;
    int rounds = 0;
    bool finished = false;
    while (!finished) {
        ++rounds;
        const bool passed = data.currentNum <= capacity;
        data.UpdateResultData(passed ? 10.0 : 40.0, 5.0, 50.0);
        EXPECT_EQ(data.IsEvaluatedSuccess(), passed);
        finished = data.UpdateNextDecodeNums(passed);
        EXPECT_LE(rounds, 10);
    }
    return {data.resultNum, rounds};
}

TEST(EvaluateProcessData, BinarySearchFindsTheLargestCountThatKeepsUp)
{
    for (int capacity = 0; capacity <= 20; ++capacity) {
        const auto [result, rounds] = Search(capacity);
        EXPECT_EQ(result, std::min(capacity, 16)) << "capacity " << capacity;
        EXPECT_LE(rounds, 6) << "capacity " << capacity;
    }
}

TEST(EvaluateProcessData, ARoundPassesOnlyWithinEveryLimit)
{
    EvaluateProcessData data;
    data.UpdateResultData(33.0, 33.0, 79.9);
    EXPECT_TRUE(data.IsEvaluatedSuccess());
    data.UpdateResultData(33.01, 1.0, 10.0);
    EXPECT_FALSE(data.IsEvaluatedSuccess());
    data.UpdateResultData(1.0, 33.01, 10.0);
    EXPECT_FALSE(data.IsEvaluatedSuccess());
    data.UpdateResultData(1.0, 1.0, 80.0);
    EXPECT_FALSE(data.IsEvaluatedSuccess());
    data.UpdateResultData(std::numeric_limits<double>::infinity(), 1.0, 10.0);
    EXPECT_FALSE(data.IsEvaluatedSuccess());
    EXPECT_EQ(data.finishedTimes, 5U);
}

TEST(VideoStreamLoader, PackagesRoundTripAndBrokenOnesAreRefused)
{
    VideoStreamLoader::Stream stream;
    stream.width = 1920;
    stream.height = 1080;
    stream.fps = 30;
    stream.frames = {{0, 0, 0, 1, 0x40, 1, 2}, {0, 0, 0, 1, 0x02}, {}};
    const std::vector<uint8_t> package = VideoStreamLoader::MakePackage(stream);
    VideoStreamLoader::Stream parsed;
    std::size_t offset = 0;
    ASSERT_TRUE(VideoStreamLoader::ParseDataPackage(package, parsed, offset));
    EXPECT_EQ(offset, 24U);
    EXPECT_EQ(parsed.width, 1920U);
    EXPECT_EQ(parsed.fps, 30U);
    EXPECT_EQ(parsed.frames, stream.frames);

    std::vector<uint8_t> wrongCount = package;
    wrongCount[0] = 4;
    EXPECT_FALSE(VideoStreamLoader::ParseDataPackage(wrongCount, parsed, offset));
    std::vector<uint8_t> wrongMagic = package;
    wrongMagic[4] = 'X';
    EXPECT_FALSE(VideoStreamLoader::ParseDataPackage(wrongMagic, parsed, offset));
    const std::vector<uint8_t> truncated(package.begin(), package.end() - 9);
    EXPECT_FALSE(VideoStreamLoader::ParseDataPackage(truncated, parsed, offset));
    EXPECT_TRUE(parsed.frames.empty());
    EXPECT_FALSE(VideoStreamLoader::ParseDataPackage({}, parsed, offset));

    test_support::TempDir directory;
    {
        std::ofstream file(directory.Path() / "good.h265", std::ios::binary);
        file.write(reinterpret_cast<const char*>(package.data()), static_cast<std::streamsize>(package.size()));
    }
    VideoStreamLoader loader;
    ASSERT_TRUE(loader.Initialize(directory.Path().string() + "/", {"good.h265"}));
    ASSERT_NE(loader.GetStream("good.h265"), nullptr);
    EXPECT_EQ(loader.GetStream("good.h265")->frames.size(), 3U);
    EXPECT_FALSE(loader.Initialize(directory.Path().string(), {"good.h265", "missing.h265"}));
    EXPECT_EQ(loader.GetError(), "missing.h265 cannot be opened");
}

TEST(EvaluateHistory, ResultsSurviveAReadAndBrokenFilesAreRefused)
{
    test_support::TempDir root;
    const std::string path = Orsa::JoinPath(root.Path().string() + "/", "/config/decode_evaluate_record.json");
    EXPECT_EQ(path, root.Path().string() + "/config/decode_evaluate_record.json");
    rviz_plugin::EvaluateHistory history(path);
    ASSERT_TRUE(history.ParseConfigFile());
    EXPECT_FALSE(history.HasRecord());
    history.SetChannels("Software", "1080p | 30 fps", 5);
    history.SetChannels("Software", "4k | 30 fps", 1);
    ASSERT_TRUE(history.SaveConfigFile());

    rviz_plugin::EvaluateHistory reread(path);
    ASSERT_TRUE(reread.ParseConfigFile());
    EXPECT_EQ(reread.GetChannels("Software", "1080p | 30 fps"), 5);
    EXPECT_EQ(reread.GetChannels("Software", "4k | 30 fps"), 1);
    EXPECT_EQ(reread.GetChannels("Intel", "4k | 30 fps"), -1);

    std::ofstream(path) << "{\"Software\": {\"video_format\": 3}}";
    EXPECT_FALSE(rviz_plugin::EvaluateHistory(path).ParseConfigFile());
}

AVFrame* GreyFrame(int width, int height, uint8_t luma)
{
    AVFrame* frame = av_frame_alloc();
    frame->width = width;
    frame->height = height;
    frame->format = AV_PIX_FMT_YUV420P;
    EXPECT_EQ(av_frame_get_buffer(frame, 0), 0);
    for (int plane = 0; plane < 3; ++plane) {
        const int rows = plane == 0 ? height : height / 2;
        std::fill(frame->data[plane], frame->data[plane] + frame->linesize[plane] * rows, plane == 0 ? luma : 128);
    }
    return frame;
}

TEST(FrameConverter, PicturesBecomeRgbaImagesAndBadInputIsRefusedAndSizesMayChange)
{
    rviz_plugin::FrameConverter converter;
    AVFrame* frame = GreyFrame(64, 48, 235);
    QImage image;
    ASSERT_TRUE(rviz_plugin::FrameConverter::ConvertDataToQtImage(frame, image));
    EXPECT_EQ(image.size(), QSize(64, 48));
    EXPECT_GT(qGray(image.pixel(10, 10)), 240);
    EXPECT_FALSE(rviz_plugin::FrameConverter::ConvertDataToQtImage(nullptr, image));
    EXPECT_FALSE(converter.ConvertVideoFrame(frame, nullptr));
    AVFrame* half = rviz_plugin::FrameConverter::AllocAvFrame(32, 24);
    ASSERT_NE(half, nullptr);
    EXPECT_TRUE(converter.ConvertVideoFrame(frame, half));
    EXPECT_GT(half->data[0][0], 240);  // blue of a white BGRA pixel
    // The kept scaler is made again for another size: the whole smaller picture is written.
    AVFrame* quarter = rviz_plugin::FrameConverter::AllocAvFrame(16, 12);
    ASSERT_NE(quarter, nullptr);
    std::fill(quarter->data[0], quarter->data[0] + quarter->linesize[0] * 12, 0);
    EXPECT_TRUE(converter.ConvertVideoFrame(frame, quarter));
    EXPECT_GT(quarter->data[0][quarter->linesize[0] * 11 + 15 * 4], 240);
    EXPECT_EQ(rviz_plugin::FrameConverter::AllocAvFrame(0, 24), nullptr);
    av_frame_free(&quarter);
    av_frame_free(&half);
    av_frame_free(&frame);
}

std::shared_ptr<rviz_plugin::YuvTextureData> Picture(uint32_t second)
{
    auto picture = std::make_shared<rviz_plugin::YuvTextureData>();
    AVFrame* frame = GreyFrame(64, 48, 100);
    picture->SetFrameData(frame);
    av_frame_free(&frame);
    std_msgs::Header header;
    header.stamp = ros::Time(second, 0);
    picture->SetFrameHeader(header);
    return picture;
}

TEST(ImageConvert, QueueIsBoundedAndPendingPicturesAreConverted)
{
    rviz_plugin::ImageConvert convert;
    // Without its thread nothing leaves the queue.
    for (uint32_t i = 1; i <= 40; ++i) {
        convert.SaveImageToCache(Picture(100 + i));
    }
    EXPECT_EQ(convert.GetQueueSize(), rviz_plugin::ImageConvert::queueLimit);
    // An older picture (a restarted stream) starts the queue anew.
    convert.SaveImageToCache(Picture(5));
    EXPECT_EQ(convert.GetQueueSize(), 1U);
    EXPECT_FALSE(convert.UpdateImage());

    ASSERT_TRUE(convert.Initialize());
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    bool converted = false;
    while (!converted && std::chrono::steady_clock::now() < deadline) {
        converted = convert.UpdateImage();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_TRUE(converted);
    EXPECT_EQ(convert.GetQueueSize(), 0U);
    convert.Stop();
}

} // namespace

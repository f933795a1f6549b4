// Encoders and the overlay filter against real FFmpeg: files checked with ffprobe and decoded pictures.
#include "record_test_pictures.h"

#include "../support/temp_dir.h"

#include "record_video_logic/ffmpeg_filter.h"
#include "record_video_logic/nv_encoder.h"
#include "record_video_logic/qsv_encoder.h"
#include "record_video_logic/software_encoder.h"

#include <gtest/gtest.h>

#include <filesystem>

extern "C" {
#include <libavutil/frame.h>
}

using rviz_plugin::Encoder;
using rviz_plugin::FfmpegFilter;
using rviz_plugin::SoftwareEncoder;
using rviz_plugin::StreamType;

namespace {

// Records `count` pictures of rising grey into file at the given size.
bool Record(Encoder& encoder, const std::string& file, int width, int height, int count)
{
    if (!encoder.Initialize(file, width, height) || !encoder.InitWriteHeader()) {
        return false;
    }
    for (int i = 0; i < count; ++i) {
        if (!encoder.Encode(record_test::GreyPicture(width, height, static_cast<uint8_t>(16 + i * 4)))) {
            return false;
        }
    }
    encoder.Finished();
    return true;
}

// The grey a decoded picture shows for a video luma (limited range).
int GreyOfLuma(int luma)
{
    return (luma - 16) * 255 / 219;
}

bool IsRed(QRgb pixel)
{
    return qRed(pixel) > 200 && qGreen(pixel) < 70 && qBlue(pixel) < 70;
}

} // namespace

TEST(Encoder, BitRateFollowsThePixelCount)
{
    EXPECT_EQ(Encoder::BitRateForSize(640, 640), 410000);   // 409600 pixels
    EXPECT_EQ(Encoder::BitRateForSize(854, 480), 410000);   // 409920, the bound itself
    EXPECT_EQ(Encoder::BitRateForSize(855, 480), 920000);
    EXPECT_EQ(Encoder::BitRateForSize(1280, 720), 920000);  // 921600
    EXPECT_EQ(Encoder::BitRateForSize(1281, 720), 2070000);
    EXPECT_EQ(Encoder::BitRateForSize(1920, 1080), 2070000);
}

TEST(Encoder, SoftwareRecordingKeepsEveryPictureAtThirtyAFrameRate)
{
    test_support::TempDir folder;
    const std::string file = folder / "camera.mp4";
    SoftwareEncoder encoder;
    ASSERT_TRUE(Record(encoder, file, 320, 240, 47));
    EXPECT_FALSE(encoder.GetIsInitialized());
    // Drained before the trailer: every picture handed in is in the file.
    EXPECT_EQ(record_test::ProbeVideo(file), "h264,320,240,30/1,47");
    const QImage last = record_test::DecodedPicture(file, 46, folder / "last.png");
    ASSERT_FALSE(last.isNull());
    EXPECT_NEAR(qGray(last.pixel(160, 120)), GreyOfLuma(16 + 46 * 4), 6);
}

TEST(Encoder, UnknownExtensionFallsBackToMpegAndFailuresLeaveNoTrailer)
{
    test_support::TempDir folder;
    testing::internal::CaptureStdout();
    SoftwareEncoder mpeg;
    EXPECT_TRUE(Record(mpeg, folder / "camera.unknownformat", 320, 240, 10));
    SoftwareEncoder unwritable;
    const std::string missing = folder / "no_such_folder/camera.mp4";
    EXPECT_TRUE(unwritable.Initialize(missing, 320, 240));
    EXPECT_FALSE(unwritable.InitWriteHeader());
    EXPECT_FALSE(unwritable.Encode(record_test::GreyPicture(320, 240, 50)));
    unwritable.Finished();
    const std::string log = testing::internal::GetCapturedStdout();
    EXPECT_NE(log.find("Failed to deduce output format from file extension: using MPEG."), std::string::npos);
    EXPECT_NE(log.find("Failed to initialize the encoder: File not opened. Memory may be insufficient. Release "
                       "memory and restart Orsa."),
              std::string::npos);
    EXPECT_EQ(record_test::ProbeVideo(folder / "camera.unknownformat"), "mpeg1video,320,240,30/1,10");
    EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST(Encoder, HardwareEncodersWithoutTheirDeviceFailCleanlyAndLeaveNoFile)
{
    test_support::TempDir folder;
    testing::internal::CaptureStdout();
    rviz_plugin::QsvEncoder intel;
    EXPECT_FALSE(intel.Initialize(folder / "intel.mp4", 854, 480));
    EXPECT_FALSE(intel.InitWriteHeader());
    intel.Finished();
    rviz_plugin::NvEncoder nvidia;
    EXPECT_FALSE(nvidia.Initialize(folder / "nvidia.mp4", 854, 480));
    rviz_plugin::NvEncoder probe;
    EXPECT_FALSE(probe.IsEncoderSupported());
    const std::string log = testing::internal::GetCapturedStdout();
    EXPECT_NE(log.find("Failed to initialize the encoder: HwDeviceCtx for QSV. FFmpeg error type: "), std::string::npos);
    EXPECT_NE(log.find("Failed to initialize the encoder: HwDeviceCtx for CUDA. FFmpeg error type: "), std::string::npos);
    EXPECT_NE(log.find("The current running environment does not support the NVIDIA encoder."), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    EXPECT_FALSE(std::filesystem::exists("nv_encoder_test.mp4"));
}

TEST(FfmpegFilter, ArgumentsAndDescriptionOfTheGraph)
{
    rviz_plugin::FrameType type;
    type.width = 1280;
    type.height = 720;
    type.pixelFormat = 28;
    EXPECT_EQ(FfmpegFilter::TransformToFilterArgs(type), "video_size=1280x720:pix_fmt=28:time_base=1/30:pixel_aspect=1/1");
    EXPECT_EQ(FfmpegFilter::ConstructFilterDescription("in0", "in1"), "[in0][in1]overlay=0:0[out]");
}

TEST(FfmpegFilter, OverlayBoxIsLaidOverThePictureAndRecorded)
{
    FfmpegFilter filter;
    EXPECT_EQ(filter.Overlapping(), FfmpegFilter::filterError);
    ASSERT_TRUE(filter.Initialize({320, 240}));
    const custom::AvFrame video = record_test::GreyPicture(320, 240, 40);
    const custom::AvFrame overlay = record_test::OverlayWithBox(320, 240, 100, 60, 80);
    test_support::TempDir folder;
    const std::string file = folder / "overlay.mp4";
    SoftwareEncoder encoder;
    ASSERT_TRUE(encoder.Initialize(file, 320, 240));
    ASSERT_TRUE(encoder.InitWriteHeader());
    int pictures = 0;
    for (int i = 0; i < 20; ++i) {
        const int result = filter.OverlayMsg(video, overlay);
        ASSERT_NE(result, FfmpegFilter::filterError);
        if (result == FfmpegFilter::pictureReady) {
            ASSERT_TRUE(encoder.Encode(filter.GetOutputFrame()));
            ++pictures;
        }
    }
    encoder.Finished();
    EXPECT_GE(pictures, 19);
    EXPECT_EQ(record_test::ProbeVideo(file), "h264,320,240,30/1," + std::to_string(pictures));
    const QImage picture = record_test::DecodedPicture(file, pictures - 1, folder / "overlay.png");
    ASSERT_FALSE(picture.isNull());
    EXPECT_TRUE(IsRed(picture.pixel(140, 100)));
    EXPECT_FALSE(IsRed(picture.pixel(20, 20)));
    EXPECT_NEAR(qGray(picture.pixel(20, 20)), GreyOfLuma(40), 6);

    // Another picture size: the graph is built again for it.
    filter.Clear();
    EXPECT_FALSE(filter.GetIsInitialized());
    ASSERT_TRUE(filter.Initialize({160, 120}));
    EXPECT_NE(filter.OverlayMsg(record_test::GreyPicture(160, 120, 200), record_test::OverlayWithBox(160, 120, 0, 0, 8)),
              FfmpegFilter::filterError);
    EXPECT_EQ(filter.GetSize(), std::make_pair(160, 120));
}

// Pictures on their way to a texture: the size a picture is scaled to for its window, and the
// frames that cannot be converted (no size, no image), which log and leave the texture alone.
#include "../support/ros_test_main.h"
#include "frames/rgba_texture_data.h"
#include "frames/texture_data.h"
#include "frames/yuv_texture_data.h"

#include <gtest/gtest.h>

extern "C" {
#include <libavutil/frame.h>
}

#include <boost/make_shared.hpp>
#include <sensor_msgs/Image.h>

using rviz_plugin::TextureData;

namespace {

std::pair<unsigned, unsigned> Fit(unsigned srcW, unsigned srcH, unsigned maxW, unsigned maxH)
{
    unsigned w = 99;
    unsigned h = 99;
    TextureData::CalcImageSize(srcW, srcH, maxW, maxH, w, h);
    return {w, h};
}

TEST(TextureData, PictureIsScaledDownToItsWindowNeverUp)
{
    using Size = std::pair<unsigned, unsigned>;
    // A window larger than the frame keeps the source size; Ogre stretches it on the quad.
    EXPECT_EQ(Fit(640, 360, 1920, 1080), Size(640, 360));
    EXPECT_EQ(Fit(640, 360, 640, 360), Size(640, 360));
    // Width-bound and height-bound windows keep the aspect.
    EXPECT_EQ(Fit(1920, 1080, 480, 1000), Size(480, 270));
    EXPECT_EQ(Fit(1920, 1080, 1000, 270), Size(480, 270));
    // Very thin windows: at least 4 wide, at least 1 high.
    EXPECT_EQ(Fit(1920, 1080, 2000, 1), Size(4, 1));
    EXPECT_EQ(Fit(1920, 1080, 1, 2000), Size(1, 1));
    // A window of no height gives 0, which the converters refuse.
    EXPECT_EQ(Fit(1920, 1080, 100, 0), Size(0, 0));
    EXPECT_EQ(TextureData::AlignSize(1283, 4), 1280);
    EXPECT_EQ(TextureData::AlignSize(1283, 0), 0);
}

TEST(TextureData, FramesThatCannotBeConvertedAreRefusedWithTheirText)
{
    rviz_plugin::TransformCore core;
    core.windowWidth = 320;
    core.windowHeight = 180;
    std::vector<uint8_t> buffer(7, 1);
    std_msgs::Header header;

    rviz_plugin::YuvTextureData empty;
    std::string log = test_support::Console([&]() { EXPECT_FALSE(empty.ConvertToTextureImage(buffer, header, core)); });
    EXPECT_NE(log.find("The width or the height of decoded frame is 0. Frame width: 0, frame height: 0."),
              std::string::npos)
        << log;
    EXPECT_EQ(buffer.size(), 7U);

    rviz_plugin::YuvTextureData picture;
    AVFrame* frame = av_frame_alloc();
    frame->width = 64;
    frame->height = 48;
    frame->format = AV_PIX_FMT_YUV420P;
    ASSERT_EQ(av_frame_get_buffer(frame, 0), 0);
    picture.SetFrameData(frame);
    core.windowHeight = 0;
    log = test_support::Console([&]() { EXPECT_FALSE(picture.ConvertToTextureImage(buffer, header, core)); });
    EXPECT_NE(log.find("Texture width or texture height is 0. Texture transformation is failed."), std::string::npos)
        << log;
    core.windowHeight = 180;
    EXPECT_TRUE(picture.ConvertToTextureImage(buffer, header, core));
    EXPECT_EQ(buffer.size(), 64U * 48U * 3U);
    av_frame_free(&frame);

    rviz_plugin::RgbaTextureData noImage(nullptr);
    log = test_support::Console([&]() { EXPECT_FALSE(noImage.ConvertToTextureImage(buffer, header, core)); });
    EXPECT_NE(log.find("No available sensor image data for texture."), std::string::npos) << log;
}

} // namespace

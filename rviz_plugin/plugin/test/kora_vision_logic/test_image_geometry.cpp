// Where a picture lies in its window: cropping, letterboxing, the camera info's region of interest
// and the projection of the camera of the image.
#include "kora_vision_logic/image_geometry.h"

#include <gtest/gtest.h>

namespace geometry = rviz_plugin::ImageGeometry;

TEST(ImageGeometry, PictureIsLetterboxedNeverStretched)
{
    geometry::Zoom zoom;
    const geometry::Cropping none;
    // 16:9 in a square window: full width, 9/16 of the height.
    ASSERT_TRUE(geometry::UpdateZoomParameters(1280, 720, 400, 400, 1.0F, 1.0F, none, zoom));
    EXPECT_FLOAT_EQ(zoom.x, 1.0F);
    EXPECT_FLOAT_EQ(zoom.y, 0.5625F);
    // 4:3 in a wide window: full height.
    ASSERT_TRUE(geometry::UpdateZoomParameters(640, 480, 1600, 600, 1.0F, 1.0F, none, zoom));
    EXPECT_FLOAT_EQ(zoom.x, 0.5F);
    EXPECT_FLOAT_EQ(zoom.y, 1.0F);
    // Anisotropic focal lengths change the picture's aspect.
    ASSERT_TRUE(geometry::UpdateZoomParameters(400, 400, 400, 400, 1.0F, 2.0F, none, zoom));
    EXPECT_FLOAT_EQ(zoom.y, 0.5F);
    for (const auto& sizes : {std::array<unsigned, 4>{0, 720, 400, 400}, std::array<unsigned, 4>{1280, 0, 400, 400},
                              std::array<unsigned, 4>{1280, 720, 0, 400}, std::array<unsigned, 4>{1280, 720, 400, 0}}) {
        EXPECT_FALSE(geometry::UpdateZoomParameters(sizes[0], sizes[1], sizes[2], sizes[3], 1.0F, 1.0F, none, zoom));
        EXPECT_FLOAT_EQ(zoom.x, 1.0F);
        EXPECT_FLOAT_EQ(zoom.y, 1.0F);
    }
}

TEST(ImageGeometry, FreeCroppingOfFortyPercentKeepsTheMiddleFifth)
{
    geometry::Cropping cropping;
    cropping.enabled = true;
    cropping.percent = {40, 40, 40, 40};
    const geometry::TextureWindow window = geometry::UpdateTextureIndex(cropping);
    EXPECT_FLOAT_EQ(window.left, 0.4F);
    EXPECT_FLOAT_EQ(window.right, 0.6F);
    EXPECT_FLOAT_EQ(window.top, 0.4F);
    EXPECT_FLOAT_EQ(window.bottom, 0.6F);
    // 20 % of 1280 x 720 is 256 x 144, letterboxed by that aspect in a window of 16:18.
    geometry::Zoom zoom;
    ASSERT_TRUE(geometry::UpdateZoomParameters(1280, 720, 320, 360, 1.0F, 1.0F, cropping, zoom));
    EXPECT_FLOAT_EQ(zoom.x, 1.0F);
    EXPECT_NEAR(zoom.y, (320.0F / 360.0F) / (256.0F / 144.0F), 1e-6);

    // Uneven edges change the aspect: 1280 x (100 - 40)% of 720.
    cropping.percent = {40, 0, 0, 0};
    ASSERT_TRUE(geometry::UpdateZoomParameters(1280, 720, 1280, 432, 1.0F, 1.0F, cropping, zoom));
    EXPECT_FLOAT_EQ(zoom.x, 1.0F);
    EXPECT_FLOAT_EQ(zoom.y, 1.0F);
    // Off: the whole texture.
    cropping.enabled = false;
    EXPECT_FLOAT_EQ(geometry::UpdateTextureIndex(cropping).left, 0.0F);
    EXPECT_FLOAT_EQ(geometry::UpdateTextureIndex(cropping).bottom, 1.0F);
}

TEST(ImageGeometry, ZoomCroppingCutsEqualMarginsAndKeepsTheAspect)
{
    geometry::Cropping cropping;
    cropping.enabled = true;
    cropping.zoom = true;
    cropping.zoomFactor = 200;
    cropping.percent = {40, 0, 0, 0};  // ignored in zoom mode
    const geometry::TextureWindow window = geometry::UpdateTextureIndex(cropping);
    EXPECT_FLOAT_EQ(window.left, 0.25F);
    EXPECT_FLOAT_EQ(window.top, 0.25F);
    EXPECT_FLOAT_EQ(window.right, 0.75F);
    EXPECT_FLOAT_EQ(window.bottom, 0.75F);
    geometry::Zoom zoom;
    ASSERT_TRUE(geometry::UpdateZoomParameters(1280, 720, 400, 400, 1.0F, 1.0F, cropping, zoom));
    EXPECT_FLOAT_EQ(zoom.y, 0.5625F);
    cropping.zoomFactor = 100;
    EXPECT_FLOAT_EQ(geometry::UpdateTextureIndex(cropping).left, 0.0F);
}

TEST(ImageGeometry, RegionOfInterestPlacesTheQuad)
{
    const geometry::Zoom zoom{0.5F, 1.0F};
    const geometry::Corners whole = geometry::UpdateRectangleCorners(zoom, {}, 1280, 720);
    EXPECT_FLOAT_EQ(whole.left, -0.5F);
    EXPECT_FLOAT_EQ(whole.right, 0.5F);
    EXPECT_FLOAT_EQ(whole.top, 1.0F);
    EXPECT_FLOAT_EQ(whole.bottom, -1.0F);
    // The right half of the image.
    const geometry::Corners half = geometry::UpdateRectangleCorners(zoom, {640, 0, 640, 720}, 1280, 720);
    EXPECT_FLOAT_EQ(half.left, 0.0F);
    EXPECT_FLOAT_EQ(half.right, 0.5F);
    EXPECT_FLOAT_EQ(half.top, 1.0F);
    EXPECT_FLOAT_EQ(half.bottom, -1.0F);
    // A region without an image size is ignored.
    EXPECT_FLOAT_EQ(geometry::UpdateRectangleCorners(zoom, {640, 0, 640, 720}, 0, 0).left, -0.5F);
}

TEST(ImageGeometry, ProjectionOfACentredPinhole)
{
    const auto m = geometry::CameraProjectionMatrix(1000.0F, 1000.0F, 640.0F, 360.0F, 1280, 720, {1.0F, 0.5F});
    EXPECT_FLOAT_EQ(m[0], 2.0F * 1000.0F / 1280.0F);
    EXPECT_FLOAT_EQ(m[5], 2.0F * 1000.0F / 720.0F * 0.5F);
    EXPECT_FLOAT_EQ(m[2], 0.0F);
    EXPECT_FLOAT_EQ(m[6], 0.0F);
    EXPECT_FLOAT_EQ(m[10], -1.0002F);
    EXPECT_FLOAT_EQ(m[11], -0.020002F);
    EXPECT_FLOAT_EQ(m[14], -1.0F);
    EXPECT_FLOAT_EQ(m[15], 0.0F);
    const auto shifted = geometry::CameraProjectionMatrix(1000.0F, 1000.0F, 320.0F, 540.0F, 1280, 720, {});
    EXPECT_FLOAT_EQ(shifted[2], 0.5F);
    EXPECT_FLOAT_EQ(shifted[6], 0.5F);
}

#include "image_geometry.h"

#include <cmath>

namespace rviz_plugin {
namespace ImageGeometry {

namespace {
constexpr float fullPercent = 100.0F;
} // namespace

bool UpdateZoomParameters(unsigned textureWidth, unsigned textureHeight, unsigned windowWidth, unsigned windowHeight,
                          float focalX, float focalY, const Cropping& cropping, Zoom& zoom)
{
    zoom = Zoom();
    float width = static_cast<float>(textureWidth);
    float height = static_cast<float>(textureHeight);
    if (cropping.enabled && !cropping.zoom) {
        width = std::floor((fullPercent - static_cast<float>(cropping.percent[Cropping::Left] +
                                                             cropping.percent[Cropping::Right])) *
                           width / fullPercent);
        height = std::floor((fullPercent - static_cast<float>(cropping.percent[Cropping::Top] +
                                                              cropping.percent[Cropping::Down])) *
                            height / fullPercent);
    }
    if (width <= 0.0F || height <= 0.0F || windowWidth == 0 || windowHeight == 0 || focalX == 0.0F ||
        focalY == 0.0F) {
        return false;
    }
    const float imageAspect = (width / focalX) / (height / focalY);
    const float windowAspect = static_cast<float>(windowWidth) / static_cast<float>(windowHeight);
    if (imageAspect <= windowAspect) {
        zoom.x = imageAspect / windowAspect;
    } else {
        zoom.y = windowAspect / imageAspect;
    }
    return true;
}

TextureWindow UpdateTextureIndex(const Cropping& cropping)
{
    TextureWindow window;
    if (!cropping.enabled) {
        return window;
    }
    if (cropping.zoom) {
        const float margin = (1.0F - fullPercent / static_cast<float>(cropping.zoomFactor)) * 0.5F;
        return {margin, margin, 1.0F - margin, 1.0F - margin};
    }
    window.left = static_cast<float>(cropping.percent[Cropping::Left]) / fullPercent;
    window.right = 1.0F - static_cast<float>(cropping.percent[Cropping::Right]) / fullPercent;
    window.top = static_cast<float>(cropping.percent[Cropping::Top]) / fullPercent;
    window.bottom = 1.0F - static_cast<float>(cropping.percent[Cropping::Down]) / fullPercent;
    return window;
}

Corners UpdateRectangleCorners(const Zoom& zoom, const RegionOfInterest& roi, unsigned imageWidth,
                               unsigned imageHeight)
{
    Corners corners;
    if ((roi.width != 0 || roi.height != 0) && imageWidth != 0 && imageHeight != 0) {
        const auto w = static_cast<float>(imageWidth);
        const auto h = static_cast<float>(imageHeight);
        corners.left = (2.0F * static_cast<float>(roi.xOffset) / w - 1.0F) * zoom.x;
        corners.top = (-2.0F * static_cast<float>(roi.yOffset) / h + 1.0F) * zoom.y;
        corners.right = corners.left + 2.0F * static_cast<float>(roi.width) / w * zoom.x;
        corners.bottom = corners.top - 2.0F * static_cast<float>(roi.height) / h * zoom.y;
        return corners;
    }
    corners.left *= zoom.x;
    corners.right *= zoom.x;
    corners.top *= zoom.y;
    corners.bottom *= zoom.y;
    return corners;
}

std::array<float, 16> CameraProjectionMatrix(float focalX, float focalY, float principalX, float principalY,
                                             unsigned imageWidth, unsigned imageHeight, const Zoom& zoom)
{
    std::array<float, 16> matrix{};
    const auto w = static_cast<float>(imageWidth);
    const auto h = static_cast<float>(imageHeight);
    matrix[0] = 2.0F * focalX / w * zoom.x;
    matrix[5] = 2.0F * focalY / h * zoom.y;
    matrix[2] = 2.0F * (0.5F - principalX / w) * zoom.x;
    matrix[6] = 2.0F * (principalY / h - 0.5F) * zoom.y;
    matrix[10] = -1.0002F;
    matrix[11] = -0.020002F;
    matrix[14] = -1.0F;
    return matrix;
}

} // namespace ImageGeometry
} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_IMAGE_GEOMETRY_H
#define RVIZ_PLUGIN_IMAGE_GEOMETRY_H

#include <array>

namespace rviz_plugin {

// Where a video item's picture lies in its window, and how the camera of the image sees the scene:
// cropping, letterboxing, the region of interest of the camera info and its projection. Pure
// arithmetic, shared by the renderer and its tests.
namespace ImageGeometry {

// The user's cropping of an item: zoom keeps the aspect; free cuts a percentage off each edge.
struct Cropping {
    enum Side { Top = 0, Down = 1, Left = 2, Right = 3 };
    bool enabled = false;
    bool zoom = false;
    int zoomFactor = 100;
    std::array<int, 4> percent{{0, 0, 0, 0}};
};

// Scale of the picture's quad against the whole window, per axis.
struct Zoom {
    float x = 1.0F;
    float y = 1.0F;
};

// Quad corners in normalised device coordinates.
struct Corners {
    float left = -1.0F;
    float top = 1.0F;
    float right = 1.0F;
    float bottom = -1.0F;
};

// Texture coordinates of the picture's visible part.
struct TextureWindow {
    float left = 0.0F;
    float top = 0.0F;
    float right = 1.0F;
    float bottom = 1.0F;
};

// The part of the camera image a region of interest covers (width or height 0: none).
struct RegionOfInterest {
    unsigned xOffset = 0;
    unsigned yOffset = 0;
    unsigned width = 0;
    unsigned height = 0;
};

// Letterboxes the (cropped) texture in the window, focal lengths taken into account; false, with
// zoom 1, when a size is 0.
bool UpdateZoomParameters(unsigned textureWidth, unsigned textureHeight, unsigned windowWidth, unsigned windowHeight,
                          float focalX, float focalY, const Cropping& cropping, Zoom& zoom);

TextureWindow UpdateTextureIndex(const Cropping& cropping);

// The quad: the region of interest of an image of imageWidth x imageHeight when there is one, else
// the whole window, both scaled by zoom.
Corners UpdateRectangleCorners(const Zoom& zoom, const RegionOfInterest& roi, unsigned imageWidth,
                               unsigned imageHeight);

// Row-major projection of a pinhole camera for near 0.01 and far 100, letterboxed by zoom.
std::array<float, 16> CameraProjectionMatrix(float focalX, float focalY, float principalX, float principalY,
                                             unsigned imageWidth, unsigned imageHeight, const Zoom& zoom);

} // namespace ImageGeometry

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_BOX_OUTLINE_H
#define RVIZ_PLUGIN_BOX_OUTLINE_H

#include <opencv2/core.hpp>

namespace rviz_plugin {
namespace ImageUtils {

// The anti-aliased outline of a box with whole-pixel corners, as cv::rectangle draws it with LINE_AA
// on an 8-bit four-channel canvas, without rasterising it again for every box: for each thickness
// the outline's pixels (set, or blended with a coverage) are taken once from a probe box drawn by
// OpenCV, and a box of any size is its probe's corners joined by the probe's straight middle. A few
// pixels at each corner, which OpenCV blends more than once, get one blend of the nearest coverage
// (within a few levels of what OpenCV gives). A box that is small, too thick or not wholly on the
// canvas is left to cv::rectangle.
void DrawBoxOutline(cv::Mat& image, const cv::Rect& box, const cv::Scalar& color, int thickness);

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

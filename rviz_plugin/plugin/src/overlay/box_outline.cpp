#include "box_outline.h"

#include <opencv2/imgproc.hpp>

#include <array>
#include <cstdlib>
#include <cstdint>
#include <vector>

namespace rviz_plugin {
namespace ImageUtils {

namespace {

constexpr int maxThickness = 16;

// What drawing does to one pixel: nothing, set it to the colour, or blend it in by coverage / 256.
struct Op {
    enum Kind : uint8_t { None, Set, Blend } kind = None;
    uint8_t coverage = 0;
};

// The outline of the probe box of one thickness, with a margin around it. Probe coordinates are
// relative to the box's top left corner; the ranges [-margin, corner) and (last - corner, last +
// margin] are the corners' and the rest is the straight middle, the same on every row or column.
struct Outline {
    int margin = 0;
    int corner = 0;
    int last = 0;  // the probe box's last column and row
    std::vector<Op> ops;
    int Width() const { return last + 1 + 2 * margin; }
    const Op& At(int u, int v) const
    {
        return ops[static_cast<std::size_t>((v + margin) * Width() + (u + margin))];
    }
    // Probe coordinate of offset d along a side of length (sideLast + 1).
    int Map(int d, int sideLast) const
    {
        if (d < corner) {
            return d;
        }
        if (d > sideLast - corner) {
            return last - (sideLast - d);
        }
        return last / 2;
    }
};

// OpenCV's anti-aliased blend of colour into value: the step is taken twice.
inline int Blend(int value, int colour, int coverage)
{
    value += ((colour - value) * coverage + 127) >> 8;
    value += ((colour - value) * coverage + 127) >> 8;
    return value;
}

// The coverage whose blend of white gives these results on a black and a grey canvas, or comes
// nearest to them (a pixel OpenCV blended more than once).
int CoverageOf(int onBlack, int onGrey)
{
    constexpr int grey = 100;
    int best = 0;
    int bestError = 1 << 30;
    for (int coverage = 1; coverage < 256; ++coverage) {
        const int error = std::abs(Blend(0, 255, coverage) - onBlack) + std::abs(Blend(grey, 255, coverage) - onGrey);
        if (error < bestError) {
            best = coverage;
            bestError = error;
        }
    }
    return best;
}

Outline MakeOutline(int thickness)
{
    Outline outline;
    outline.margin = (thickness + 1) / 2 + 2;
    outline.corner = (thickness + 1) / 2 + 3;
    outline.last = 4 * outline.corner + 1;
    const int size = outline.Width();
    cv::Mat black(size, size, CV_8UC4, cv::Scalar::all(0));
    cv::Mat grey(size, size, CV_8UC4, cv::Scalar::all(100));
    const cv::Rect probe(outline.margin, outline.margin, outline.last + 1, outline.last + 1);
    for (cv::Mat* canvas : {&black, &grey}) {
        cv::rectangle(*canvas, probe, cv::Scalar::all(255), thickness, cv::LINE_AA);
    }
    outline.ops.resize(static_cast<std::size_t>(size) * size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int onBlack = black.at<cv::Vec4b>(y, x)[0];
            const int onGrey = grey.at<cv::Vec4b>(y, x)[0];
            Op& op = outline.ops[static_cast<std::size_t>(y * size + x)];
            if (onBlack == 255 && onGrey == 255) {
                op.kind = Op::Set;
            } else if (onBlack != 0 || onGrey != 100) {
                op.kind = Op::Blend;
                op.coverage = static_cast<uint8_t>(CoverageOf(onBlack, onGrey));
            }
        }
    }
    return outline;
}

const Outline* OutlineOf(int thickness)
{
    if (thickness < 1 || thickness > maxThickness) {
        return nullptr;
    }
    static const std::array<Outline, maxThickness> outlines = []() {
        std::array<Outline, maxThickness> made;
        for (int index = 0; index < maxThickness; ++index) {
            made[static_cast<std::size_t>(index)] = MakeOutline(index + 1);
        }
        return made;
    }();
    return &outlines[static_cast<std::size_t>(thickness - 1)];
}

inline void Apply(cv::Vec4b& pixel, const Op& op, const std::array<int, 4>& color)
{
    if (op.kind == Op::Set) {
        pixel = cv::Vec4b(static_cast<uint8_t>(color[0]), static_cast<uint8_t>(color[1]),
                          static_cast<uint8_t>(color[2]), static_cast<uint8_t>(color[3]));
    } else if (op.kind == Op::Blend) {
        for (int channel = 0; channel < 4; ++channel) {
            pixel[channel] = static_cast<uint8_t>(Blend(pixel[channel], color[static_cast<std::size_t>(channel)], op.coverage));
        }
    }
}

} // namespace

void DrawBoxOutline(cv::Mat& image, const cv::Rect& box, const cv::Scalar& color, int thickness)
{
    const Outline* outline = OutlineOf(thickness);
    const bool fits = outline != nullptr && image.type() == CV_8UC4 && box.width > 2 * outline->corner + 2 &&
                      box.height > 2 * outline->corner + 2 &&
                      box.x - outline->margin >= 0 && box.y - outline->margin >= 0 &&
                      box.x + box.width + outline->margin <= image.cols &&
                      box.y + box.height + outline->margin <= image.rows;
    if (!fits) {
        cv::rectangle(image, box, color, thickness, cv::LINE_AA);
        return;
    }
    const std::array<int, 4> rgba = {cv::saturate_cast<uint8_t>(color[0]), cv::saturate_cast<uint8_t>(color[1]),
                                     cv::saturate_cast<uint8_t>(color[2]), cv::saturate_cast<uint8_t>(color[3])};
    const int columnsLast = box.width - 1;
    const int rowsLast = box.height - 1;
    const int margin = outline->margin;
    const int corner = outline->corner;
    for (int dy = -margin; dy <= rowsLast + margin; ++dy) {
        const int v = outline->Map(dy, rowsLast);
        cv::Vec4b* row = image.ptr<cv::Vec4b>(box.y + dy) + box.x;
        // The left and right parts as the probe has them; between them one op for the whole run.
        for (int dx = -margin; dx < corner; ++dx) {
            Apply(row[dx], outline->At(dx, v), rgba);
        }
        const Op& middle = outline->At(outline->last / 2, v);
        if (middle.kind != Op::None) {
            for (int dx = corner; dx <= columnsLast - corner; ++dx) {
                Apply(row[dx], middle, rgba);
            }
        }
        for (int dx = columnsLast - corner + 1; dx <= columnsLast + margin; ++dx) {
            Apply(row[dx], outline->At(outline->Map(dx, columnsLast), v), rgba);
        }
    }
}

} // namespace ImageUtils
} // namespace rviz_plugin

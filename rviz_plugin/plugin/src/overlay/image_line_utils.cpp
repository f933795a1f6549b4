#include "image_line_utils.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace rviz_plugin {
namespace ImageUtils {

namespace {
constexpr signed char zeroCoefficients = -1;
constexpr signed char samePoints = -2;
constexpr signed char sameRows = -3;
constexpr signed char unknownClassification = -4;
constexpr signed char startNotOnCurve = -5;
constexpr signed char endNotOnCurve = -6;
constexpr signed char frameIdMismatch = -7;
constexpr signed char outsideCanvas = -8;
constexpr double onCurveTolerance = 0.1;
constexpr int rowStep = 12;
constexpr int dashRows = 50;
constexpr int labelOffset = 10;
} // namespace

ImageLineUtils::ImageLineUtils()
    : statusTexts{
          {zeroCoefficients, "The coefficients of the polynomial x = a*y^3 + b*y^2 + c*y + d in ImageLine are all 0. "
                             "Check whether the ImageLine parameter is correctly set."},
          {samePoints, "The values of startPoint and endPoint in the image line are the same. Check whether the "
                       "ImageLine parameter is correctly set."},
          {sameRows, "The ordinates of start point and end point are same. Check whether the ImageLine parameter is "
                     "correctly set."},
          {unknownClassification,
           "The classification field in the received ImageLine structure does not match any of the values configured "
           "on the UI. Check whether the classification field in the received ImageLine structure and the Value "
           "configured under Road Lines > Classification Setting > Classification on the UI are the same."},
          {startNotOnCurve, "The start point of an image line is not on the curve represented by the image line."},
          {endNotOnCurve, "The end point of an image line is not on the curve represented by the image line."},
          {frameIdMismatch, "The frame_id of the ImageLine does not match that of the Image. Check whether the "
                            "ImageLine frame_id is correctly set."},
          {outsideCanvas, "A coefficient or point of an image line is not a finite number. Check whether the "
                          "ImageLine parameter is correctly set."},
      }
{
}

void ImageLineUtils::PrintImageLineArrayStatus(signed char status) const
{
    PrintStatus(
        statusTexts, status,
        [this](const QString& text) {
            Q_EMIT AddImageLineArrayStatus(rviz::StatusProperty::Warn, "ImageLineArray", text);
        },
        [this]() { Q_EMIT RemoveImageLineArrayStatus("ImageLineArray"); });
}

void ImageLineUtils::Draw(cv::Mat& image, const IppConfig& config, const custom::ImageLineArray& message,
                          bool frameIdMatches) const
{
    if (!frameIdMatches) {
        PrintImageLineArrayStatus(frameIdMismatch);
        return;
    }
    signed char status = noFault;
    for (const custom::ImageLine& line : message.lineList) {
        if (!GetImageLineStatus(image, line, status)) {
            continue;
        }
        LineParameters parameters{line.a, line.b, line.c, line.d};
        const double firstRow = std::round(std::min(line.startPoint.y, line.endPoint.y));
        const double lastRow = std::round(std::max(line.startPoint.y, line.endPoint.y));
        if (firstRow >= lastRow) {
            RefreshImageUtilStatus(status, sameRows);
            continue;
        }
        // Rows far beyond the canvas are held just outside it: the visible part stays the same.
        const double lowRow = -2.0 * rowStep;
        const double highRow = image.rows + 2.0 * rowStep;
        parameters.startRow = static_cast<int>(ClampCoordinate(firstRow, lowRow, highRow));
        parameters.endRow = static_cast<int>(ClampCoordinate(lastRow, lowRow, highRow));
        if (parameters.startRow >= parameters.endRow) {
            continue;  // wholly above or below the canvas
        }
        const bool notConfigured = config.imageLineClassifications.count(line.classification) == 0;
        if (notConfigured) {
            RefreshImageUtilStatus(status, unknownClassification);
        }
        DisplayProperties properties;
        ParseDisplayProperties(config, line, notConfigured, properties);
        if (properties.isSolidLine) {
            DrawSolidLine(image, parameters, properties);
        } else {
            DrawDottedLine(image, parameters, properties);
        }
        DrawLabelForLines(image, config, line, parameters, notConfigured, properties);
    }
    PrintImageLineArrayStatus(status);
}

bool ImageLineUtils::GetImageLineStatus(const cv::Mat& /*image*/, const custom::ImageLine& line, signed char& status) const
{
    if (line.a == 0 && line.b == 0 && line.c == 0 && line.d == 0) {
        RefreshImageUtilStatus(status, zeroCoefficients);
        return false;
    }
    if (line.startPoint.x == line.endPoint.x && line.startPoint.y == line.endPoint.y) {
        RefreshImageUtilStatus(status, samePoints);
        return false;
    }
    const bool finite = std::isfinite(line.a) && std::isfinite(line.b) && std::isfinite(line.c) &&
                        std::isfinite(line.d);
    if (!finite || !std::isfinite(line.startPoint.x) || !std::isfinite(line.startPoint.y) ||
        !std::isfinite(line.endPoint.x) || !std::isfinite(line.endPoint.y)) {
        RefreshImageUtilStatus(status, outsideCanvas);
        return false;
    }
    const LineParameters curve{line.a, line.b, line.c, line.d};
    if (!(std::abs(curve.XAt(line.startPoint.y) - line.startPoint.x) <= onCurveTolerance)) {
        RefreshImageUtilStatus(status, startNotOnCurve);
    }
    if (!(std::abs(curve.XAt(line.endPoint.y) - line.endPoint.x) <= onCurveTolerance)) {
        RefreshImageUtilStatus(status, endNotOnCurve);
    }
    return true;
}

void ImageLineUtils::DrawCurve(cv::Mat& image, const LineParameters& line, int firstRow, int lastRow,
                               const DisplayProperties& properties) const
{
    // Only rows on the canvas (and one step around it) are visited, however far the line reaches.
    const int stepsToCanvas = firstRow < -rowStep ? (-firstRow / rowStep) - 1 : 0;
    lastRow = std::min(lastRow, image.rows + rowStep);
    const cv::Rect2d area = ClipArea(image, properties.lineThickness);
    bool havePrevious = false;
    cv::Point2d previous;
    for (int row = firstRow + stepsToCanvas * rowStep;; row = std::min(row + rowStep, lastRow)) {
        const cv::Point2d point(line.XAt(row), row);
        if (std::isfinite(point.x)) {
            // Each piece is cut to the canvas, so a line reaching far sideways still shows its visible part.
            cv::Point2d from = previous;
            cv::Point2d to = point;
            if (havePrevious && ClipSegment(from, to, area)) {
                cv::line(image, RoundPoint(from.x, from.y), RoundPoint(to.x, to.y), properties.boxColor,
                         properties.lineThickness, cv::LINE_AA);
            }
            previous = point;
            havePrevious = true;
        } else {
            havePrevious = false;
        }
        if (row >= lastRow) {
            break;
        }
    }
}

void ImageLineUtils::DrawSolidLine(cv::Mat& image, const LineParameters& line,
                                   const DisplayProperties& properties) const
{
    DrawCurve(image, line, line.startRow, line.endRow, properties);
}

void ImageLineUtils::DrawDottedLine(cv::Mat& image, const LineParameters& line,
                                    const DisplayProperties& properties) const
{
    constexpr int period = 2 * dashRows;
    const int firstDash = line.startRow < 0 ? (-line.startRow / period) : 0;
    const int lastStart = std::min(line.endRow, image.rows);
    for (int start = line.startRow + firstDash * period; start <= lastStart; start += period) {
        DrawCurve(image, line, start, std::min(start + dashRows, line.endRow), properties);
    }
}

void ImageLineUtils::DrawLabelForLines(cv::Mat& image, const IppConfig& config, const custom::ImageLine& line,
                                       const LineParameters& parameters, bool notConfigured,
                                       DisplayProperties& properties) const
{
    LabelDisplay display = config.imageLineDisplay;
    display.showClassificationText = false;
    const std::vector<std::string> rows =
        GetClassificationLabels(display, notConfigured ? "not_configured" : "", line.classificationConfidence, "",
                                line.textDisplay);
    if (rows.empty()) {
        return;
    }
    const int middle = (parameters.startRow + parameters.endRow) / 2;
    const double x = parameters.XAt(middle);
    if (!IsDrawableCoordinate(x, image)) {
        return;
    }
    const LabelStrips::Strip& strip = labelStrips.Get(rows, properties);
    const cv::Size& label = strip.size;
    cv::Point position = RoundPoint(x + labelOffset, middle - labelOffset - label.height);
    if (position.x + label.width > image.cols || position.y < 0) {
        position = RoundPoint(x - labelOffset - label.width, middle + labelOffset);
    }
    LabelStrips::Put(image, strip, rows, position, properties);
}

} // namespace ImageUtils
} // namespace rviz_plugin

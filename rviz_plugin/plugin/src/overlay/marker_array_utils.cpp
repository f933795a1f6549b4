#include "marker_array_utils.h"

#include "image_utils.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace rviz_plugin {
namespace ImageUtils {

namespace {
using visualization_msgs::Marker;

constexpr double arrowTipLength = 0.1;
// OpenCV refuses thicker lines.
constexpr double maxLineThickness = 32767;
// Text larger than this would reach coordinates OpenCV cannot draw.
constexpr double maxFontScale = 100;
const char* const frameStatusKey = "MarkerArray";
const QString outsideCanvasText =
    "The position or scale of the marker is not a finite number or lies far outside the image.";

uint8_t ColorByte(float channel)
{
    return static_cast<uint8_t>(std::lrint(std::clamp(std::isfinite(channel) ? channel : 0.0F, 0.0F, 1.0F) * 255));
}

cv::Scalar ToScalar(const std_msgs::ColorRGBA& color)
{
    return cv::Scalar(ColorByte(color.b), ColorByte(color.g), ColorByte(color.r), ColorByte(color.a));
}

cv::Point ToPoint(const geometry_msgs::Point& point)
{
    return RoundPoint(point.x, point.y);
}

bool IsBlank(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isspace(c) != 0; });
}
} // namespace

MarkerArrayUtils::MarkerArrayUtils()
{
    using namespace std::placeholders;
    const auto bind = [this](void (MarkerArrayUtils::*function)(cv::Mat&, const IppConfig&, const Marker&)) {
        return DrawFunction(std::bind(function, this, _1, _2, _3));
    };
    drawFunctions = {
        {Marker::ARROW, bind(&MarkerArrayUtils::DrawArrow)},
        {Marker::CUBE, bind(&MarkerArrayUtils::DrawRectangle)},
        {Marker::SPHERE, bind(&MarkerArrayUtils::DrawCircle)},
        {Marker::LINE_STRIP, bind(&MarkerArrayUtils::DrawLineStrip)},
        {Marker::LINE_LIST, bind(&MarkerArrayUtils::DrawLineList)},
        {Marker::CUBE_LIST, bind(&MarkerArrayUtils::DrawRectangleList)},
        {Marker::SPHERE_LIST, bind(&MarkerArrayUtils::DrawCircleList)},
        {Marker::POINTS, bind(&MarkerArrayUtils::DrawPoints)},
        {Marker::TEXT_VIEW_FACING, bind(&MarkerArrayUtils::DrawText)},
        {Marker::TRIANGLE_LIST, bind(&MarkerArrayUtils::DrawTriangles)},
    };
}

void MarkerArrayUtils::DrawMarkerArray(cv::Mat& image, const IppConfig& config,
                                       const visualization_msgs::MarkerArray& array, bool frameIdMatches)
{
    if (frameIdMatches) {
        Q_EMIT RemoveMarkerArrayStatus(frameStatusKey);
    } else {
        Q_EMIT AddMarkerArrayStatus(rviz::StatusProperty::Warn, frameStatusKey,
                                    "The frame_id of the Marker does not match that of the Image. Check whether the "
                                    "Marker frame_id is correctly set.");
    }
    for (markerIndex = 0; markerIndex < array.markers.size(); ++markerIndex) {
        if (!markerKeysWithStatus.empty()) {
            const QString key = QString("markers[%1]").arg(markerIndex);
            if (markerKeysWithStatus.erase(key) != 0) {
                Q_EMIT RemoveMarkerArrayStatus(key);
            }
        }
        DrawMarker(image, config, array.markers[markerIndex]);
    }
}

void MarkerArrayUtils::DrawMarker(cv::Mat& image, const IppConfig& config, const Marker& marker)
{
    const auto found = drawFunctions.find(marker.type);
    if (found == drawFunctions.end()) {
        SetMarkerStatus(rviz::StatusProperty::Error,
                        QString("Current marker.type[%1] is not supported to draw.").arg(marker.type));
        return;
    }
    found->second(image, config, marker);
}

void MarkerArrayUtils::SetMarkerStatus(rviz::StatusProperty::Level level, const QString& text)
{
    const QString key = QString("markers[%1]").arg(markerIndex);
    markerKeysWithStatus.insert(key);
    Q_EMIT AddMarkerArrayStatus(level, key, text);
}

void MarkerArrayUtils::EmitColorsNumberInvalidSignal(std::size_t colors, std::size_t points)
{
    SetMarkerStatus(rviz::StatusProperty::Error,
                    QString("Number of colors[%1] doesn't match number of points[%2].").arg(colors).arg(points));
}

bool MarkerArrayUtils::CheckColorsNumber(const Marker& marker)
{
    if (!marker.colors.empty() && marker.colors.size() != marker.points.size()) {
        EmitColorsNumberInvalidSignal(marker.colors.size(), marker.points.size());
        return false;
    }
    return true;
}

bool MarkerArrayUtils::CheckPoints(const cv::Mat& image, const Marker& marker, const QString& emptyText)
{
    if (marker.points.empty()) {
        SetMarkerStatus(rviz::StatusProperty::Error, emptyText);
        return false;
    }
    for (const geometry_msgs::Point& point : marker.points) {
        if (!IsDrawablePoint(point.x, point.y, image)) {
            SetMarkerStatus(rviz::StatusProperty::Error, outsideCanvasText);
            return false;
        }
    }
    return true;
}

bool MarkerArrayUtils::CheckScaleXY(const cv::Mat& image, const Marker& marker)
{
    if (marker.scale.x == 0.0 || marker.scale.y == 0.0) {
        SetMarkerStatus(rviz::StatusProperty::Warn, "Scale contains 0.0 in x or y.");
        return false;
    }
    if (!(marker.scale.x > 0 && marker.scale.y > 0) || !IsDrawablePoint(marker.scale.x, marker.scale.y, image)) {
        SetMarkerStatus(rviz::StatusProperty::Error, outsideCanvasText);
        return false;
    }
    return true;
}

bool MarkerArrayUtils::CheckPosition(const cv::Mat& image, const geometry_msgs::Point& position)
{
    if (!IsDrawablePoint(position.x, position.y, image)) {
        SetMarkerStatus(rviz::StatusProperty::Error, outsideCanvasText);
        return false;
    }
    return true;
}

bool MarkerArrayUtils::CheckLineThickness(const Marker& marker, const QString& typeName)
{
    if (marker.scale.x == 0.0) {
        SetMarkerStatus(rviz::StatusProperty::Warn,
                        QString("Scale.x should not be 0.0 for a %1 marker.").arg(typeName));
        return false;
    }
    if (!(marker.scale.x >= 1 && marker.scale.x <= maxLineThickness)) {
        SetMarkerStatus(rviz::StatusProperty::Warn,
                        QString("Scale.x (%1) of a %2 marker is not a line thickness from 1 to %3.")
                            .arg(marker.scale.x)
                            .arg(typeName)
                            .arg(maxLineThickness));
        return false;
    }
    return true;
}

void MarkerArrayUtils::ForEachPoint(const Marker& marker,
                                    const std::function<void(const cv::Point2d&, const cv::Scalar&)>& draw) const
{
    for (std::size_t index = 0; index < marker.points.size(); ++index) {
        const cv::Scalar color = ToScalar(marker.colors.empty() ? marker.color : marker.colors[index]);
        draw(cv::Point2d(marker.points[index].x, marker.points[index].y), color);
    }
}

void MarkerArrayUtils::DrawArrow(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    if (marker.points.size() != 2) {
        SetMarkerStatus(rviz::StatusProperty::Error,
                        QString("The marker.points number should be 2, current is %1.").arg(marker.points.size()));
        return;
    }
    if (!CheckLineThickness(marker, "ARROW") || !CheckPoints(image, marker, QString())) {
        return;
    }
    cv::arrowedLine(image, ToPoint(marker.points[0]), ToPoint(marker.points[1]), ToScalar(marker.color),
                    static_cast<int>(marker.scale.x), cv::LINE_8, 0, arrowTipLength);
}

void MarkerArrayUtils::DrawRectangle(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    const geometry_msgs::Point& center = marker.pose.position;
    if (!CheckScaleXY(image, marker) || !CheckPosition(image, center)) {
        return;
    }
    cv::rectangle(image, RoundPoint(center.x - marker.scale.x / 2, center.y - marker.scale.y / 2),
                  RoundPoint(center.x + marker.scale.x / 2, center.y + marker.scale.y / 2), ToScalar(marker.color),
                  cv::FILLED);
}

void MarkerArrayUtils::DrawRectangleList(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    if (!CheckPoints(image, marker,
                     "Points should not be empty for specified marker type. At least one points are required for a "
                     "CUBE_LIST marker.") ||
        !CheckColorsNumber(marker) || !CheckScaleXY(image, marker)) {
        return;
    }
    const double halfX = marker.scale.x / 2;
    const double halfY = marker.scale.y / 2;
    ForEachPoint(marker, [&](const cv::Point2d& point, const cv::Scalar& color) {
        cv::rectangle(image, RoundPoint(point.x - halfX, point.y - halfY), RoundPoint(point.x + halfX, point.y + halfY),
                      color, cv::FILLED);
    });
}

void MarkerArrayUtils::DrawCircle(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    const geometry_msgs::Point& center = marker.pose.position;
    if (!CheckScaleXY(image, marker) || !CheckPosition(image, center)) {
        return;
    }
    cv::ellipse(image, RoundPoint(center.x, center.y), RoundPoint(marker.scale.x / 2, marker.scale.y / 2), 0, 0, 360,
                ToScalar(marker.color), cv::FILLED);
}

void MarkerArrayUtils::DrawCircleList(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    if (!CheckPoints(image, marker,
                     "Points should not be empty for specified marker type. At least one points are required for a "
                     "CIRCLE_LIST marker.") ||
        !CheckColorsNumber(marker) || !CheckScaleXY(image, marker)) {
        return;
    }
    const cv::Point axes = RoundPoint(marker.scale.x / 2, marker.scale.y / 2);
    ForEachPoint(marker, [&](const cv::Point2d& point, const cv::Scalar& color) {
        cv::ellipse(image, RoundPoint(point.x, point.y), cv::Size(axes.x, axes.y), 0, 0, 360, color, cv::FILLED);
    });
}

void MarkerArrayUtils::DrawLineStrip(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    if (marker.points.size() < 2) {
        SetMarkerStatus(rviz::StatusProperty::Error, "At least two points are required for a LINE_STRIP marker.");
        return;
    }
    if (!CheckPoints(image, marker, QString()) || !CheckColorsNumber(marker) ||
        !CheckLineThickness(marker, "LINE_STRIP")) {
        return;
    }
    bool first = true;
    cv::Point previous;
    ForEachPoint(marker, [&](const cv::Point2d& point, const cv::Scalar& color) {
        const cv::Point current = RoundPoint(point.x, point.y);
        if (!first) {
            cv::line(image, previous, current, color, static_cast<int>(marker.scale.x), cv::LINE_AA);
        }
        previous = current;
        first = false;
    });
}

void MarkerArrayUtils::DrawLineList(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    if (!CheckPoints(image, marker,
                     "Points should not be empty for specified marker type. At least two points are required for a "
                     "LINE_LIST marker.")) {
        return;
    }
    if (marker.points.size() % 2 != 0) {
        SetMarkerStatus(rviz::StatusProperty::Error,
                        QString("Number of points should be a multiple of 2 for LINE_LIST marker, current is %1")
                            .arg(marker.points.size()));
        return;
    }
    if (!CheckColorsNumber(marker) || !CheckLineThickness(marker, "LINE_LIST")) {
        return;
    }
    std::size_t index = 0;
    cv::Point start;
    ForEachPoint(marker, [&](const cv::Point2d& point, const cv::Scalar& color) {
        const cv::Point current = RoundPoint(point.x, point.y);
        if (index++ % 2 == 1) {
            cv::line(image, start, current, color, static_cast<int>(marker.scale.x), cv::LINE_AA);
        }
        start = current;
    });
}

void MarkerArrayUtils::DrawPoints(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    if (!CheckPoints(image, marker, "Points should not be empty for specified marker type.") ||
        !CheckColorsNumber(marker)) {
        return;
    }
    if (marker.scale.x == 0.0) {
        SetMarkerStatus(rviz::StatusProperty::Warn, "Scale.x should not be 0.0 for a POINTS marker.");
        return;
    }
    if (!(marker.scale.x > 0) || !IsDrawableCoordinate(marker.scale.x, image)) {
        SetMarkerStatus(rviz::StatusProperty::Error, outsideCanvasText);
        return;
    }
    const int radius = static_cast<int>(std::lrint(marker.scale.x));
    ForEachPoint(marker, [&](const cv::Point2d& point, const cv::Scalar& color) {
        cv::circle(image, RoundPoint(point.x, point.y), radius, color, cv::FILLED);
    });
}

void MarkerArrayUtils::DrawTriangles(cv::Mat& image, const IppConfig& /*config*/, const Marker& marker)
{
    if (!CheckPoints(image, marker,
                     "Points should not be empty for specified marker type. At least three points are required for a "
                     "TRIANGLE_LIST marker.")) {
        return;
    }
    if (marker.points.size() % 3 != 0) {
        SetMarkerStatus(rviz::StatusProperty::Error,
                        QString("Number of points should be a multiple of 3 for TRIANGLE_LIST marker, current is %1.")
                            .arg(marker.points.size()));
        return;
    }
    if (!CheckColorsNumber(marker)) {
        return;
    }
    std::vector<cv::Point> triangle;
    cv::Scalar firstColor;
    ForEachPoint(marker, [&](const cv::Point2d& point, const cv::Scalar& color) {
        if (triangle.empty()) {
            firstColor = color;
        }
        triangle.push_back(RoundPoint(point.x, point.y));
        if (triangle.size() == 3) {
            cv::fillConvexPoly(image, triangle, firstColor, cv::LINE_AA);
            triangle.clear();
        }
    });
}

void MarkerArrayUtils::DrawText(cv::Mat& image, const IppConfig& config, const Marker& marker)
{
    if (IsBlank(marker.text)) {
        SetMarkerStatus(rviz::StatusProperty::Error, "Text is empty or only consists of whitespace.");
        return;
    }
    if (marker.scale.z == 0.0) {
        SetMarkerStatus(rviz::StatusProperty::Warn, "Scale.z should not be 0.0 for a TEXT_VIEW_FACING marker.");
        return;
    }
    const geometry_msgs::Point& center = marker.pose.position;
    if (!(marker.scale.z > 0 && marker.scale.z <= maxFontScale)) {
        SetMarkerStatus(rviz::StatusProperty::Error, outsideCanvasText);
        return;
    }
    if (!CheckPosition(image, center)) {
        return;
    }
    const std::vector<std::string> lines = Split(marker.text, '\n');
    const int thickness = std::max(config.markerThickness, 1);
    int lineHeight = 0;
    for (const std::string& line : lines) {
        int baseline = 0;
        lineHeight = std::max(lineHeight, cv::getTextSize(line, cv::FONT_HERSHEY_DUPLEX, marker.scale.z, thickness,
                                                          &baseline).height + baseline);
    }
    const cv::Point centre = RoundPoint(center.x, center.y);
    int baselineY = centre.y - lineHeight * static_cast<int>(lines.size()) / 2 + lineHeight;
    for (const std::string& line : lines) {
        int baseline = 0;
        const cv::Size size = cv::getTextSize(line, cv::FONT_HERSHEY_DUPLEX, marker.scale.z, thickness, &baseline);
        cv::putText(image, line, {centre.x - size.width / 2, baselineY - baseline}, cv::FONT_HERSHEY_DUPLEX,
                    marker.scale.z, ToScalar(marker.color), thickness, cv::LINE_AA);
        baselineY += lineHeight;
    }
}

} // namespace ImageUtils
} // namespace rviz_plugin

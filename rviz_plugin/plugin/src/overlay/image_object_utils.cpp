#include "image_object_utils.h"

#include <opencv2/imgproc.hpp>

#include <cmath>

namespace rviz_plugin {
namespace ImageUtils {

namespace {
constexpr signed char invalidBox = -1;
constexpr signed char shortPolygon = -2;
constexpr signed char unknownBoxClassification = -3;
constexpr signed char unknownPolygonClassification = -4;
constexpr signed char frameIdMismatch = -5;
constexpr signed char outsideCanvas = -6;
} // namespace

ImageObjectUtils::ImageObjectUtils()
{
    const QString unknownClassification =
        "The classification field in the received Object structure does not match any of the values configured on "
        "the UI. Check whether the classification field in the received Object structure and the Value configured "
        "under Objects > Classification Setting > Classification on the UI are the same.";
    statusTexts = {
        {invalidBox, "The width and height of boxImage are invalid. Check whether the boxImage parameter in the object "
                     "is correctly set."},
        {shortPolygon, "The size of boxImagePolygon of an object is less than three. Check whether the "
                       "boxImagePolygon parameter in the object is correctly set."},
        {unknownBoxClassification, unknownClassification},
        {unknownPolygonClassification, unknownClassification},
        {frameIdMismatch, "The frame_id of the Object does not match that of the Image. Check whether the Object "
                          "frame_id is correctly set."},
        {outsideCanvas, "A coordinate of boxImage or boxImagePolygon of an object is not a finite number. "
                        "Check whether the object is correctly set."},
    };
}

void ImageObjectUtils::PrintObjectArrayStatus(signed char status) const
{
    PrintStatus(
        statusTexts, status,
        [this](const QString& text) { Q_EMIT AddObjectArrayStatus(rviz::StatusProperty::Warn, "ObjectArray", text); },
        [this]() { Q_EMIT RemoveObjectArrayStatus("ObjectArray"); });
}

void ImageObjectUtils::Draw(cv::Mat& image, const IppConfig& config, const custom::ObjectArray& message,
                            bool frameIdMatches) const
{
    if (!frameIdMatches) {
        PrintObjectArrayStatus(frameIdMismatch);
        return;
    }
    signed char status = noFault;
    for (const custom::Object& object : message.objectList) {
        DrawObject(image, config, object, status);
        if (!object.boxImagePolygon.empty()) {
            DrawObjectPolygon(image, config, object, status);
        }
    }
    PrintObjectArrayStatus(status);
}

void ImageObjectUtils::DrawObject(cv::Mat& image, const IppConfig& config, const custom::Object& object,
                                  signed char& status) const
{
    switch (CheckBoxImage(object.boxImage, image)) {
    case BoxCheck::TooSmall:
        RefreshImageUtilStatus(status, invalidBox);
        return;
    case BoxCheck::OutsideCanvas:
        RefreshImageUtilStatus(status, outsideCanvas);
        return;
    case BoxCheck::Drawable:
        break;
    }
    const bool notConfigured = config.objectClassifications.count(object.classification) == 0;
    if (notConfigured) {
        RefreshImageUtilStatus(status, unknownBoxClassification);
    }
    DisplayProperties properties;
    ParseDisplayProperties(config, object, notConfigured, properties);
    DrawBoxWithLabel(image, object.boxImage, GetObjectLabels(config, object, notConfigured), properties, labelStrips);
}

void ImageObjectUtils::DrawObjectPolygon(cv::Mat& image, const IppConfig& config, const custom::Object& object,
                                         signed char& status) const
{
    if (object.boxImagePolygon.size() < 3) {
        RefreshImageUtilStatus(status, shortPolygon);
        return;
    }
    std::vector<cv::Point2d> corners;
    corners.reserve(object.boxImagePolygon.size());
    for (const custom::Point2D& point : object.boxImagePolygon) {
        if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
            RefreshImageUtilStatus(status, outsideCanvas);
            return;
        }
        corners.emplace_back(point.x, point.y);
    }
    const bool notConfigured = config.objectClassifications.count(object.classification) == 0;
    if (notConfigured) {
        RefreshImageUtilStatus(status, unknownPolygonClassification);
    }
    DisplayProperties properties;
    ParseDisplayProperties(config, object, notConfigured, properties);
    // Only the part on the canvas is drawn; a polygon wholly outside draws nothing.
    std::vector<cv::Point> polygon;
    for (const cv::Point2d& corner : ClipPolygon(corners, ClipArea(image, properties.lineThickness))) {
        polygon.push_back(RoundPoint(corner.x, corner.y));
    }
    if (polygon.size() < 3) {
        return;
    }
    cv::polylines(image, polygon, true, properties.boxColor, properties.lineThickness, cv::LINE_AA);
    DrawLabelForPolygon(image, GetObjectLabels(config, object, notConfigured), polygon, properties, labelStrips);
}

std::vector<std::string> ImageObjectUtils::GetObjectLabels(const IppConfig& config, const custom::Object& object,
                                                           bool notConfigured) const
{
    const LabelDisplay& display = config.objectDisplay;
    std::string idRow;
    if (display.showObjectId) {
        idRow = "ObjectID: " + std::to_string(object.objectId);
    }
    if (display.showTrackId) {
        idRow += (idRow.empty() ? "" : " ") + std::string("TrackID: ") + std::to_string(object.trackId);
    }
    const std::string text =
        notConfigured ? std::string("not_configured") : config.objectClassifications.at(object.classification).text;
    return GetClassificationLabels(display, text, object.classificationConfidence, idRow, object.textDisplay);
}

} // namespace ImageUtils
} // namespace rviz_plugin

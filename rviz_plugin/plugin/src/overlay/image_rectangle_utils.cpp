#include "image_rectangle_utils.h"

namespace rviz_plugin {
namespace ImageUtils {

namespace {
constexpr signed char invalidRectangle = -1;
constexpr signed char unknownClassification = -2;
constexpr signed char frameIdMismatch = -3;
constexpr signed char outsideCanvas = -4;
} // namespace

ImageRectangleUtils::ImageRectangleUtils()
    : statusTexts{
          {invalidRectangle, "The width and height of rectImage in an image rectangle are invalid. Check whether the "
                             "rectImage parameter is correctly set."},
          {unknownClassification,
           "The classification field in the received ImageRectangle structure does not match any of the values "
           "configured on the UI. Check whether the classification field in the received ImageRectangle structure "
           "and the Value configured under Traffic Lights > Classification Setting > Classification on the UI are "
           "the same."},
          {frameIdMismatch, "The frame_id of the ImageRectangle does not match that of the Image. Check whether the "
                            "ImageRectangle frame_id is correctly set."},
          {outsideCanvas, "A coordinate of rectImage in an image rectangle is not a finite number. Check whether "
                          "the rectImage parameter is correctly set."},
      }
{
}

void ImageRectangleUtils::PrintImageRectangleArrayStatus(signed char status) const
{
    PrintStatus(
        statusTexts, status,
        [this](const QString& text) {
            Q_EMIT AddImageRectangleArrayStatus(rviz::StatusProperty::Warn, "ImageRectangleArray", text);
        },
        [this]() { Q_EMIT RemoveImageRectangleArrayStatus("ImageRectangleArray"); });
}

void ImageRectangleUtils::Draw(cv::Mat& image, const IppConfig& config, const custom::ImageRectangleArray& message,
                               bool frameIdMatches) const
{
    if (!frameIdMatches) {
        PrintImageRectangleArrayStatus(frameIdMismatch);
        return;
    }
    signed char status = noFault;
    for (const custom::ImageRectangle& rectangle : message.rectangleList) {
        const BoxCheck check = CheckBoxImage(rectangle.rectImage, image);
        if (check != BoxCheck::Drawable) {
            RefreshImageUtilStatus(status, check == BoxCheck::TooSmall ? invalidRectangle : outsideCanvas);
            continue;
        }
        const auto found = config.imageRectangleClassifications.find(rectangle.classification);
        const bool notConfigured = found == config.imageRectangleClassifications.end();
        if (notConfigured) {
            RefreshImageUtilStatus(status, unknownClassification);
        }
        DisplayProperties properties;
        ParseDisplayProperties(config, rectangle, notConfigured, properties);
        const std::vector<std::string> rows =
            GetClassificationLabels(config.imageRectangleDisplay, notConfigured ? "not_configured" : found->second.text,
                                    rectangle.classificationConfidence, "", rectangle.textDisplay);
        DrawBoxWithLabel(image, rectangle.rectImage, rows, properties, labelStrips);
    }
    PrintImageRectangleArrayStatus(status);
}

} // namespace ImageUtils
} // namespace rviz_plugin

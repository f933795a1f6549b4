#ifndef RVIZ_PLUGIN_IMAGE_UTILS_H
#define RVIZ_PLUGIN_IMAGE_UTILS_H

#include "ipp_config.h"

#include <custom/BoxImage.h>
#include <custom/ImageLine.h>
#include <custom/ImageRectangle.h>
#include <custom/Object.h>

#include <QString>

#include <opencv2/core.hpp>

#include <functional>
#include <map>
#include <string>
#include <vector>

// Drawing helpers shared by the overlay painters. All drawing goes to an 8-bit, four-channel
// canvas in blue, green, red, alpha order.
namespace rviz_plugin {
namespace ImageUtils {

class LabelStrips;

struct DisplayProperties {
    int textThickness = 1;
    int lineThickness = 2;
    double fontScale = 1.0;
    int baseline = 0;
    bool isSolidLine = true;
    cv::Scalar textColor;
    cv::Scalar boxColor;
};

// A road line x = a*y^3 + b*y^2 + c*y + d between two rows.
struct LineParameters {
    double a = 0;
    double b = 0;
    double c = 0;
    double d = 0;
    int startRow = 0;
    int endRow = 0;

    double XAt(double y) const { return ((a * y + b) * y + c) * y + d; }
};

// Vertices of a polygon within the image, sorted by where they lie around the polygon's mean.
struct VertexClassification {
    std::vector<cv::Point> lowerLeft;
    std::vector<cv::Point> upperLeft;
    std::vector<cv::Point> upperRight;
    std::vector<cv::Point> lowerRight;
};

// Status code that means "no fault in this frame".
constexpr signed char noFault = -10;

// Keeps the code closest to 0: per frame the most severe fault is shown.
void RefreshImageUtilStatus(signed char& status, signed char code);

// Emits add(text) for a known fault code, remove() otherwise.
void PrintStatus(const std::map<signed char, QString>& texts, signed char status,
                 const std::function<void(const QString&)>& add, const std::function<void()>& remove);

bool IsDarkLabel(const cv::Scalar& color);

void ParseDisplayProperties(const IppConfig& config, const custom::Object& object, bool notConfigured,
                            DisplayProperties& properties);
void ParseDisplayProperties(const IppConfig& config, const custom::ImageRectangle& rectangle, bool notConfigured,
                            DisplayProperties& properties);
void ParseDisplayProperties(const IppConfig& config, const custom::ImageLine& line, bool notConfigured,
                            DisplayProperties& properties);

// Width of the widest row and height of one row (tallest text + 2 * baseline); sets the baseline.
cv::Size GetMultiRowsLabelSize(const std::vector<std::string>& rows, DisplayProperties& properties);
cv::Size GetMultiRowsLabelBackgroundSize(const std::vector<std::string>& rows, DisplayProperties& properties,
                                         int& rowHeight);

// The part of box inside a width x height image. False when the box lies wholly outside or
// covers the whole image.
bool GetOverlapRect(int width, int height, const cv::Rect& box, cv::Rect& overlap);
bool SearchLabelPositionForRectangleBasedUpperAndLeft(int width, int height, const cv::Rect& box,
                                                      const cv::Size& label, cv::Point& position);
bool SearchLabelPositionForRectangleBasedBottomAndRight(int width, int height, const cv::Rect& box,
                                                        const cv::Size& label, cv::Point& position);
bool GetLabelPositionForRectangle(int width, int height, const cv::Rect& box, const cv::Size& label,
                                  cv::Point& position);
// Where a label goes beside a polygon: next to a vertex, else at an edge, else at the first vertex.
bool GetLabelPositionForPolygon(int width, int height, const std::vector<cv::Point>& polygon, const cv::Size& label,
                                cv::Point& position);
VertexClassification ClassifyPolygonVertexes(int width, int height, const std::vector<cv::Point>& polygon);

void DrawMultiRowsLabelText(cv::Mat& image, const std::vector<std::string>& rows, const cv::Point& topLeft,
                            int rowHeight, const DisplayProperties& properties);
// Fills the label background at topLeft and writes the rows on it.
void DrawLabel(cv::Mat& image, const std::vector<std::string>& rows, const cv::Point& topLeft,
               const cv::Size& labelSize, int rowHeight, const DisplayProperties& properties);
// The label beside a box or a polygon, copied from strips.
void DrawLabelForRectangle(cv::Mat& image, const std::vector<std::string>& rows, const cv::Rect& box,
                           DisplayProperties& properties, LabelStrips& strips);
void DrawLabelForPolygon(cv::Mat& image, const std::vector<std::string>& rows, const std::vector<cv::Point>& polygon,
                         DisplayProperties& properties, LabelStrips& strips);

// "%f" with four decimals kept; trailing zeros dropped when the fourth is 0, one decimal stays.
std::string GetLabelNumberForDouble(double value);
std::vector<std::string> Split(const std::string& text, char separator);

// Label rows of a classification result: text and confidence, then idRow when not empty, then the
// free text in rows of 25 characters.
std::vector<std::string> GetClassificationLabels(const LabelDisplay& display, const std::string& classificationText,
                                                 double confidence, const std::string& idRow,
                                                 const std::string& textDisplay);

// Coordinates handed to OpenCV must be finite and near the canvas: far-away values overflow its
// fixed-point drawing. The limit is a few canvas sizes around it.
bool IsDrawableCoordinate(double value, const cv::Mat& image);

// The canvas grown by a margin wider than any line, so that edges clipped onto its border stay
// invisible. Shapes are clipped to it before OpenCV sees them.
cv::Rect2d ClipArea(const cv::Mat& image, int lineThickness);
// value held within [low, high]; value must be finite.
double ClampCoordinate(double value, double low, double high);
// Cuts the segment to area; false when nothing of it lies inside. The points must be finite.
bool ClipSegment(cv::Point2d& first, cv::Point2d& second, const cv::Rect2d& area);
// The part of a closed polygon inside area (empty when none). The points must be finite.
std::vector<cv::Point2d> ClipPolygon(const std::vector<cv::Point2d>& polygon, const cv::Rect2d& area);

enum class BoxCheck { Drawable, TooSmall, OutsideCanvas };
// A box narrower or lower than 0.01 pixel (or not a number) is too small; one with an infinite
// coordinate cannot be drawn (OutsideCanvas). Boxes reaching beyond the canvas are drawable: their
// visible part is drawn.
BoxCheck CheckBoxImage(const custom::BoxImage& box, const cv::Mat& image);
// The rectangle, rounded to pixels, and its label.
void DrawBoxWithLabel(cv::Mat& image, const custom::BoxImage& box, const std::vector<std::string>& rows,
                      DisplayProperties& properties, LabelStrips& strips);
bool IsDrawablePoint(double x, double y, const cv::Mat& image);
cv::Point RoundPoint(double x, double y);

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

#include "image_utils.h"

#include "box_outline.h"
#include "label_strips.h"

#include "foundation/string_helpers.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <functional>
#include <cmath>
#include <cstdio>

namespace rviz_plugin {
namespace ImageUtils {

namespace {
constexpr int fontFace = cv::FONT_HERSHEY_DUPLEX;
constexpr int textDisplayRowLength = 25;
constexpr int labelDecimals = 4;
constexpr int canvasSizesAround = 4;
constexpr int edgeMargin = 2;
constexpr double minBoxSize = 0.01;
const cv::Scalar white(255, 255, 255, 255);
const cv::Scalar black(0, 0, 0, 255);

bool Inside(int width, int height, const cv::Point& position, const cv::Size& label)
{
    return position.x >= 0 && position.y >= 0 && position.x + label.width <= width &&
           position.y + label.height <= height;
}

bool FirstInside(int width, int height, const cv::Size& label, std::initializer_list<cv::Point> candidates,
                 cv::Point& position)
{
    for (const cv::Point& candidate : candidates) {
        if (Inside(width, height, candidate, label)) {
            position = candidate;
            return true;
        }
    }
    return false;
}

void ParseCommon(const LabelDisplay& display, const Classifications& classifications, unsigned classification,
                 bool notConfigured, DisplayProperties& properties)
{
    properties.textThickness = display.textThickness;
    properties.lineThickness = display.textThickness + 1;
    properties.fontScale = display.textScale;
    if (notConfigured) {
        properties.boxColor = cv::Scalar(255, 255, 255, 0);
        return;
    }
    const auto& color = classifications.at(classification).color;
    properties.boxColor = cv::Scalar(color[2], color[1], color[0], 255);
}
} // namespace

void RefreshImageUtilStatus(signed char& status, signed char code)
{
    if (code > status) {
        status = code;
    }
}

void PrintStatus(const std::map<signed char, QString>& texts, signed char status,
                 const std::function<void(const QString&)>& add, const std::function<void()>& remove)
{
    const auto found = texts.find(status);
    if (status != noFault && found != texts.end()) {
        add(found->second);
    } else {
        remove();
    }
}

bool IsDarkLabel(const cv::Scalar& color)
{
    return 0.114 * color[0] + 0.587 * color[1] + 0.299 * color[2] < 130;
}

void ParseDisplayProperties(const IppConfig& config, const custom::Object& object, bool notConfigured,
                            DisplayProperties& properties)
{
    ParseCommon(config.objectDisplay, config.objectClassifications, object.classification, notConfigured,
                properties);
}

void ParseDisplayProperties(const IppConfig& config, const custom::ImageRectangle& rectangle, bool notConfigured,
                            DisplayProperties& properties)
{
    ParseCommon(config.imageRectangleDisplay, config.imageRectangleClassifications, rectangle.classification,
                notConfigured, properties);
}

void ParseDisplayProperties(const IppConfig& config, const custom::ImageLine& line, bool notConfigured,
                            DisplayProperties& properties)
{
    ParseCommon(config.imageLineDisplay, config.imageLineClassifications, line.classification, notConfigured,
                properties);
    if (!notConfigured) {
        const ClassificationDisplay& entry = config.imageLineClassifications.at(line.classification);
        properties.lineThickness = entry.lineThickness;
        properties.isSolidLine = entry.isSolid;
    }
}

cv::Size GetMultiRowsLabelSize(const std::vector<std::string>& rows, DisplayProperties& properties)
{
    int width = 0;
    int textHeight = 0;
    for (const std::string& row : rows) {
        int baseline = 0;
        const cv::Size size = cv::getTextSize(row, fontFace, properties.fontScale, properties.textThickness, &baseline);
        width = std::max(width, size.width);
        textHeight = std::max(textHeight, size.height);
        properties.baseline = std::max(properties.baseline, baseline);
    }
    return {width, textHeight + 2 * properties.baseline};
}

cv::Size GetMultiRowsLabelBackgroundSize(const std::vector<std::string>& rows, DisplayProperties& properties,
                                         int& rowHeight)
{
    const cv::Size single = GetMultiRowsLabelSize(rows, properties);
    rowHeight = single.height;
    return {single.width, single.height * static_cast<int>(rows.size())};
}

bool GetOverlapRect(int width, int height, const cv::Rect& box, cv::Rect& overlap)
{
    const cv::Rect image(0, 0, width, height);
    overlap = box & image;
    return overlap.area() > 0 && overlap != image;
}

bool SearchLabelPositionForRectangleBasedUpperAndLeft(int width, int height, const cv::Rect& box,
                                                      const cv::Size& label, cv::Point& position)
{
    return FirstInside(width, height, label,
                       {{box.x, box.y - label.height},
                        {box.x + box.width, box.y},
                        {box.x - label.width, box.y},
                        {box.x, box.y + box.height}},
                       position);
}

bool SearchLabelPositionForRectangleBasedBottomAndRight(int width, int height, const cv::Rect& box,
                                                        const cv::Size& label, cv::Point& position)
{
    const int right = box.x + box.width;
    const int bottom = box.y + box.height;
    return FirstInside(width, height, label,
                       {{right - label.width, box.y - label.height},
                        {right, bottom - label.height},
                        {box.x - label.width, bottom - label.height},
                        {right - label.width, bottom}},
                       position);
}

bool GetLabelPositionForRectangle(int width, int height, const cv::Rect& box, const cv::Size& label,
                                  cv::Point& position)
{
    cv::Rect overlap;
    if (!GetOverlapRect(width, height, box, overlap)) {
        return false;
    }
    if (SearchLabelPositionForRectangleBasedUpperAndLeft(width, height, overlap, label, position) ||
        SearchLabelPositionForRectangleBasedBottomAndRight(width, height, overlap, label, position)) {
        return true;
    }
    if (label.width < overlap.width && label.height < overlap.height) {
        position = overlap.tl();
    } else {
        position = {overlap.x, overlap.y - label.height};
    }
    return true;
}

VertexClassification ClassifyPolygonVertexes(int width, int height, const std::vector<cv::Point>& polygon)
{
    VertexClassification result;
    if (polygon.empty()) {
        return result;
    }
    double meanX = 0;
    double meanY = 0;
    for (const cv::Point& vertex : polygon) {
        meanX += vertex.x;
        meanY += vertex.y;
    }
    meanX /= static_cast<double>(polygon.size());
    meanY /= static_cast<double>(polygon.size());
    const cv::Rect image(0, 0, width, height);
    for (const cv::Point& vertex : polygon) {
        if (!image.contains(vertex)) {
            continue;
        }
        if (vertex.x < meanX) {
            (vertex.y >= meanY ? result.lowerLeft : result.upperLeft).push_back(vertex);
        } else {
            (vertex.y <= meanY ? result.upperRight : result.lowerRight).push_back(vertex);
        }
    }
    return result;
}

bool GetLabelPositionForPolygon(int width, int height, const std::vector<cv::Point>& polygon, const cv::Size& label,
                                cv::Point& position)
{
    const VertexClassification vertexes = ClassifyPolygonVertexes(width, height, polygon);
    const auto besideVertex = [&](const std::vector<cv::Point>& list, bool right) {
        for (const cv::Point& vertex : list) {
            const int x = right ? vertex.x : vertex.x - label.width;
            if (FirstInside(width, height, label, {{x, vertex.y - label.height}, {x, vertex.y}}, position)) {
                return true;
            }
        }
        return false;
    };
    if (besideVertex(vertexes.upperRight, true) || besideVertex(vertexes.lowerLeft, false) ||
        besideVertex(vertexes.lowerRight, true) || besideVertex(vertexes.upperLeft, false)) {
        return true;
    }
    // At the middle of the part of an edge that lies inside the image, above it or below it.
    const cv::Rect inner(edgeMargin, edgeMargin, width - 2 * edgeMargin, height - 2 * edgeMargin);
    for (std::size_t index = 0; index < polygon.size(); ++index) {
        cv::Point from = polygon[index];
        cv::Point to = polygon[(index + 1) % polygon.size()];
        if (from == to || inner.area() <= 0 || !cv::clipLine(inner, from, to)) {
            continue;
        }
        const cv::Point middle((from.x + to.x) / 2, (from.y + to.y) / 2);
        const int x = middle.x - label.width / 2;
        if (FirstInside(width, height, label, {{x, middle.y - label.height}, {x, middle.y}}, position)) {
            return true;
        }
    }
    const cv::Rect image(0, 0, width, height);
    for (const cv::Point& vertex : polygon) {
        if (image.contains(vertex)) {
            position = vertex;
            return true;
        }
    }
    return false;
}

void DrawMultiRowsLabelText(cv::Mat& image, const std::vector<std::string>& rows, const cv::Point& topLeft,
                            int rowHeight, const DisplayProperties& properties)
{
    int baselineY = topLeft.y + rowHeight - properties.baseline;
    for (const std::string& row : rows) {
        cv::putText(image, row, {topLeft.x, baselineY}, fontFace, properties.fontScale, properties.textColor,
                    properties.textThickness, cv::LINE_AA);
        baselineY += rowHeight;
    }
}

void DrawLabel(cv::Mat& image, const std::vector<std::string>& rows, const cv::Point& topLeft,
               const cv::Size& labelSize, int rowHeight, const DisplayProperties& properties)
{
    cv::rectangle(image, cv::Rect(topLeft, labelSize), properties.boxColor, cv::FILLED);
    DisplayProperties text = properties;
    text.textColor = IsDarkLabel(properties.boxColor) ? white : black;
    DrawMultiRowsLabelText(image, rows, topLeft, rowHeight, text);
}

namespace {
// Draws the label where place(labelSize, position) puts it; no label when there are no rows or no place.
template <typename Place>
void DrawLabelWhere(cv::Mat& image, const std::vector<std::string>& rows, DisplayProperties& properties,
                    LabelStrips& strips, Place place)
{
    if (rows.empty()) {
        return;
    }
    const LabelStrips::Strip& label = strips.Get(rows, properties);
    cv::Point position;
    if (place(label.size, position)) {
        LabelStrips::Put(image, label, rows, position, properties);
    }
}
} // namespace

void DrawLabelForRectangle(cv::Mat& image, const std::vector<std::string>& rows, const cv::Rect& box,
                           DisplayProperties& properties, LabelStrips& strips)
{
    DrawLabelWhere(image, rows, properties, strips, [&](const cv::Size& label, cv::Point& position) {
        return GetLabelPositionForRectangle(image.cols, image.rows, box, label, position);
    });
}

void DrawLabelForPolygon(cv::Mat& image, const std::vector<std::string>& rows, const std::vector<cv::Point>& polygon,
                         DisplayProperties& properties, LabelStrips& strips)
{
    DrawLabelWhere(image, rows, properties, strips, [&](const cv::Size& label, cv::Point& position) {
        return GetLabelPositionForPolygon(image.cols, image.rows, polygon, label, position);
    });
}

std::string GetLabelNumberForDouble(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof(buffer), "%f", value);
    std::string text = buffer;
    const std::size_t point = text.find('.');
    if (point == std::string::npos) {
        return text;
    }
    text.resize(std::min(text.size(), point + 1 + labelDecimals));
    if (text.size() == point + 1 + labelDecimals && text.back() == '0') {
        while (text.size() > point + 2 && text.back() == '0') {
            text.pop_back();
        }
    }
    return text;
}

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(separator, start);
        pieces.push_back(text.substr(start, end - start));
        if (end == std::string::npos) {
            return pieces;
        }
        start = end + 1;
    }
}

std::vector<std::string> GetClassificationLabels(const LabelDisplay& display, const std::string& classificationText,
                                                 double confidence, const std::string& idRow,
                                                 const std::string& textDisplay)
{
    std::vector<std::string> rows;
    std::string first;
    if (display.showClassificationText) {
        first = classificationText;
    }
    if (display.showConfidence) {
        first += (first.empty() ? "" : " ") + GetLabelNumberForDouble(confidence);
    }
    for (std::string row : {first, idRow}) {
        if (!row.empty()) {
            rows.push_back(std::move(row));
        }
    }
    if (display.showTextDisplay) {
        for (std::string& row : SplitStringToVector(textDisplay, textDisplayRowLength)) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

bool IsDrawableCoordinate(double value, const cv::Mat& image)
{
    const double limit = static_cast<double>(canvasSizesAround) * std::max({image.cols, image.rows, 1});
    return std::isfinite(value) && std::abs(value) <= limit;
}

bool IsDrawablePoint(double x, double y, const cv::Mat& image)
{
    return IsDrawableCoordinate(x, image) && IsDrawableCoordinate(y, image);
}

cv::Rect2d ClipArea(const cv::Mat& image, int lineThickness)
{
    const double margin = static_cast<double>(std::max(lineThickness, 1)) + 2.0;
    return {-margin, -margin, image.cols + 2.0 * margin, image.rows + 2.0 * margin};
}

double ClampCoordinate(double value, double low, double high)
{
    return std::min(std::max(value, low), high);
}

bool ClipSegment(cv::Point2d& first, cv::Point2d& second, const cv::Rect2d& area)
{
    // Liang-Barsky: the segment is first + t (second - first), t in [0, 1].
    const double dx = second.x - first.x;
    const double dy = second.y - first.y;
    double enter = 0.0;
    double leave = 1.0;
    const double p[] = {-dx, dx, -dy, dy};
    const double q[] = {first.x - area.x, area.x + area.width - first.x, first.y - area.y,
                        area.y + area.height - first.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) {
                return false;
            }
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0.0) {
            enter = std::max(enter, t);
        } else {
            leave = std::min(leave, t);
        }
    }
    if (enter > leave) {
        return false;
    }
    const cv::Point2d start = first;
    first = start + cv::Point2d(dx * enter, dy * enter);
    second = start + cv::Point2d(dx * leave, dy * leave);
    return true;
}

std::vector<cv::Point2d> ClipPolygon(const std::vector<cv::Point2d>& polygon, const cv::Rect2d& area)
{
    // Sutherland-Hodgman against the four edges of area.
    const double left = area.x;
    const double right = area.x + area.width;
    const double top = area.y;
    const double bottom = area.y + area.height;
    const std::function<bool(const cv::Point2d&)> inside[] = {
        [left](const cv::Point2d& point) { return point.x >= left; },
        [right](const cv::Point2d& point) { return point.x <= right; },
        [top](const cv::Point2d& point) { return point.y >= top; },
        [bottom](const cv::Point2d& point) { return point.y <= bottom; },
    };
    const std::function<cv::Point2d(const cv::Point2d&, const cv::Point2d&)> cross[] = {
        [left](const cv::Point2d& a, const cv::Point2d& b) {
            return cv::Point2d(left, a.y + (b.y - a.y) * (left - a.x) / (b.x - a.x));
        },
        [right](const cv::Point2d& a, const cv::Point2d& b) {
            return cv::Point2d(right, a.y + (b.y - a.y) * (right - a.x) / (b.x - a.x));
        },
        [top](const cv::Point2d& a, const cv::Point2d& b) {
            return cv::Point2d(a.x + (b.x - a.x) * (top - a.y) / (b.y - a.y), top);
        },
        [bottom](const cv::Point2d& a, const cv::Point2d& b) {
            return cv::Point2d(a.x + (b.x - a.x) * (bottom - a.y) / (b.y - a.y), bottom);
        },
    };
    std::vector<cv::Point2d> result = polygon;
    for (int edge = 0; edge < 4 && !result.empty(); ++edge) {
        std::vector<cv::Point2d> next;
        for (std::size_t i = 0; i < result.size(); ++i) {
            const cv::Point2d& current = result[i];
            const cv::Point2d& previous = result[(i + result.size() - 1) % result.size()];
            const bool currentIn = inside[edge](current);
            if (currentIn != inside[edge](previous)) {
                next.push_back(cross[edge](previous, current));
            }
            if (currentIn) {
                next.push_back(current);
            }
        }
        result = std::move(next);
    }
    return result;
}

BoxCheck CheckBoxImage(const custom::BoxImage& box, const cv::Mat& /*image*/)
{
    if (!(box.width >= minBoxSize && box.height >= minBoxSize)) {
        return BoxCheck::TooSmall;
    }
    if (!std::isfinite(box.x) || !std::isfinite(box.y) || !std::isfinite(box.x + box.width) ||
        !std::isfinite(box.y + box.height)) {
        return BoxCheck::OutsideCanvas;
    }
    return BoxCheck::Drawable;
}

void DrawBoxWithLabel(cv::Mat& image, const custom::BoxImage& box, const std::vector<std::string>& rows,
                      DisplayProperties& properties, LabelStrips& strips)
{
    // Edges beyond the canvas move onto the clip area's border, where they are not seen.
    const cv::Rect2d area = ClipArea(image, properties.lineThickness);
    const double left = ClampCoordinate(box.x, area.x, area.x + area.width);
    const double top = ClampCoordinate(box.y, area.y, area.y + area.height);
    const double right = ClampCoordinate(box.x + box.width, area.x, area.x + area.width);
    const double bottom = ClampCoordinate(box.y + box.height, area.y, area.y + area.height);
    const cv::Point corner = RoundPoint(left, top);
    const cv::Point size = RoundPoint(right - left, bottom - top);
    const cv::Rect rectangle(corner.x, corner.y, size.x, size.y);
    DrawBoxOutline(image, rectangle, properties.boxColor, properties.lineThickness);
    DrawLabelForRectangle(image, rows, rectangle, properties, strips);
}

cv::Point RoundPoint(double x, double y)
{
    return {static_cast<int>(std::lrint(x)), static_cast<int>(std::lrint(y))};
}

} // namespace ImageUtils
} // namespace rviz_plugin

// The overlay painters on real canvases: colours at box edges, lines, masks and markers, the
// status each fault raises, and bad values that must be skipped rather than reach OpenCV.
#include "overlay/box_outline.h"
#include "overlay/image_freespace_utils.h"
#include "overlay/image_line_utils.h"
#include "overlay/image_object_utils.h"
#include "overlay/image_rectangle_utils.h"
#include "overlay/image_semantic_segmentation_utils.h"
#include "overlay/label_strips.h"
#include "overlay/marker_array_utils.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <chrono>
#include <cmath>
#include <limits>
#include <map>

using namespace rviz_plugin;
using namespace rviz_plugin::ImageUtils;

namespace {

// The statuses a painter leaves, by key, as the status list would show them.
struct StatusRecorder {
    std::map<QString, std::pair<rviz::StatusProperty::Level, QString>> entries;
    int removals = 0;

    template <typename Painter, typename AddSignal, typename RemoveSignal>
    void Watch(const Painter& painter, AddSignal add, RemoveSignal remove)
    {
        QObject::connect(&painter, add, [this](rviz::StatusProperty::Level level, const QString& key,
                                              const QString& text) { entries[key] = {level, text}; });
        QObject::connect(&painter, remove, [this](const QString& key) {
            entries.erase(key);
            ++removals;
        });
    }
    QString Text(const QString& key) const
    {
        const auto found = entries.find(key);
        return found == entries.end() ? QString() : found->second.second;
    }
    rviz::StatusProperty::Level Level(const QString& key) const { return entries.at(key).first; }
};

cv::Mat Canvas(int width = 640, int height = 360)
{
    return cv::Mat(height, width, CV_8UC4, cv::Scalar(0, 0, 0, 0));
}

cv::Vec4b At(const cv::Mat& canvas, int x, int y)
{
    return canvas.at<cv::Vec4b>(y, x);
}

// True when the pixel has this blue, green, red within a small margin and is opaque.
bool IsColour(const cv::Vec4b& pixel, int blue, int green, int red)
{
    return std::abs(pixel[0] - blue) <= 12 && std::abs(pixel[1] - green) <= 12 && std::abs(pixel[2] - red) <= 12 &&
           pixel[3] == 255;
}

int OpaquePixels(const cv::Mat& canvas)
{
    int count = 0;
    for (int y = 0; y < canvas.rows; ++y) {
        for (int x = 0; x < canvas.cols; ++x) {
            count += At(canvas, x, y)[3] != 0 ? 1 : 0;
        }
    }
    return count;
}

custom::Object Box(double x, double y, double width, double height, uint8_t classification)
{
    custom::Object object;
    object.boxImage.x = x;
    object.boxImage.y = y;
    object.boxImage.width = width;
    object.boxImage.height = height;
    object.classification = classification;
    object.classificationConfidence = 0.85;
    return object;
}

custom::Point2D Point(double x, double y)
{
    custom::Point2D point;
    point.x = x;
    point.y = y;
    return point;
}

const char* const invalidBoxText = "The width and height of boxImage are invalid. Check whether the boxImage parameter "
                                   "in the object is correctly set.";

} // namespace

TEST(OverlayLabels, NumbersKeepFourDecimalsAndDropTrailingZeros)
{
    EXPECT_EQ(GetLabelNumberForDouble(0.85), "0.85");
    EXPECT_EQ(GetLabelNumberForDouble(0.12345), "0.1234");
    EXPECT_EQ(GetLabelNumberForDouble(1.0), "1.0");
    EXPECT_EQ(GetLabelNumberForDouble(12.5), "12.5");
    EXPECT_EQ(GetLabelNumberForDouble(0.1001), "0.1001");
}

TEST(OverlayLabels, RowsFollowTheDisplaySwitches)
{
    LabelDisplay display;
    EXPECT_EQ(GetClassificationLabels(display, "car", 0.9, "", "free"), (std::vector<std::string>{"car 0.9"}));
    display.showTextDisplay = true;
    display.showConfidence = false;
    const std::string longText(30, 'x');
    EXPECT_EQ(GetClassificationLabels(display, "car", 0.9, "ObjectID: 3", longText),
              (std::vector<std::string>{"car", "ObjectID: 3", std::string(25, 'x'), std::string(5, 'x')}));
    display.showClassificationText = false;
    display.showTextDisplay = false;
    EXPECT_TRUE(GetClassificationLabels(display, "car", 0.9, "", "").empty());
    EXPECT_EQ(Split("a\nb\n", '\n'), (std::vector<std::string>{"a", "b", ""}));
}

TEST(OverlayLabels, PositionsAroundAndInsideBoxes)
{
    cv::Point position;
    // Room above: the label sits on the box's top edge, left aligned.
    ASSERT_TRUE(GetLabelPositionForRectangle(640, 360, cv::Rect(100, 100, 50, 50), cv::Size(40, 20), position));
    EXPECT_EQ(position, cv::Point(100, 80));
    // No room above: to the right of the box, top aligned.
    ASSERT_TRUE(GetLabelPositionForRectangle(640, 360, cv::Rect(100, 5, 50, 50), cv::Size(40, 20), position));
    EXPECT_EQ(position, cv::Point(150, 5));
    // A box that leaves no room outside it: inside, at its top left.
    ASSERT_TRUE(GetLabelPositionForRectangle(640, 360, cv::Rect(1, 1, 638, 358), cv::Size(40, 20), position));
    EXPECT_EQ(position, cv::Point(1, 1));
    // Wholly outside, or covering the whole image: no label.
    EXPECT_FALSE(GetLabelPositionForRectangle(640, 360, cv::Rect(700, 10, 50, 50), cv::Size(40, 20), position));
    EXPECT_FALSE(GetLabelPositionForRectangle(640, 360, cv::Rect(-5, -5, 700, 400), cv::Size(40, 20), position));
    // Polygon: beside its upper-right vertex, above it.
    ASSERT_TRUE(GetLabelPositionForPolygon(640, 360, {{100, 100}, {200, 100}, {150, 200}}, cv::Size(30, 10), position));
    EXPECT_EQ(position, cv::Point(200, 90));
}

TEST(OverlayObjects, BoxEdgeHasTheClassificationColourAndTheLabelSitsAbove)
{
    ImageObjectUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageObjectUtils::AddObjectArrayStatus, &ImageObjectUtils::RemoveObjectArrayStatus);
    IppConfig config;
    custom::ObjectArray message;
    message.objectList.push_back(Box(100, 120, 200, 100, 5));  // "car": (243, 142, 0)
    cv::Mat canvas = Canvas();
    painter.Draw(canvas, config, message, true);

    EXPECT_TRUE(IsColour(At(canvas, 100, 170), 0, 142, 243)) << At(canvas, 100, 170);
    EXPECT_TRUE(IsColour(At(canvas, 200, 220), 0, 142, 243)) << At(canvas, 200, 220);
    EXPECT_EQ(At(canvas, 200, 170)[3], 0) << "the inside of a box stays transparent";
    // The label "car 0.85" fills a band just above the box, from its left edge.
    EXPECT_EQ(At(canvas, 102, 117)[3], 255);
    EXPECT_EQ(At(canvas, 102, 60)[3], 0);
    EXPECT_TRUE(statuses.entries.empty());
    EXPECT_EQ(statuses.removals, 1);
}

TEST(OverlayObjects, FaultsPickTheMostSevereTextAndSkipOnlyTheBadElement)
{
    ImageObjectUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageObjectUtils::AddObjectArrayStatus, &ImageObjectUtils::RemoveObjectArrayStatus);
    IppConfig config;
    custom::ObjectArray message;
    message.objectList.push_back(Box(10, 20, 50, 40, 200));    // unknown classification: -3
    message.objectList.push_back(Box(300, 200, 0.005, 40, 5)); // too narrow: -1, polygon still drawn
    message.objectList.back().boxImagePolygon = {Point(400, 100), Point(500, 100), Point(450, 180)};
    cv::Mat canvas = Canvas();
    painter.Draw(canvas, config, message, true);
    EXPECT_EQ(statuses.Text("ObjectArray"), invalidBoxText);
    EXPECT_EQ(statuses.Level("ObjectArray"), rviz::StatusProperty::Warn);
    EXPECT_TRUE(IsColour(At(canvas, 450, 100), 0, 142, 243)) << "the polygon of the narrow box is drawn";

    // The unknown classification draws an invisible box with a black "not_configured" label.
    EXPECT_EQ(At(canvas, 10, 40)[3], 0);
    int blackText = 0;
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 250; ++x) {
            const cv::Vec4b pixel = At(canvas, x, y);
            blackText += pixel[3] > 128 && pixel[0] < 100 && pixel[1] < 100 && pixel[2] < 100 ? 1 : 0;
        }
    }
    EXPECT_GT(blackText, 20);

    statuses.entries.clear();
    custom::ObjectArray polygons;
    polygons.objectList.push_back(Box(10, 20, 50, 40, 1));
    polygons.objectList.back().boxImagePolygon = {Point(1, 1), Point(5, 5)};
    painter.Draw(canvas, config, polygons, true);
    EXPECT_EQ(statuses.Text("ObjectArray"),
              "The size of boxImagePolygon of an object is less than three. Check whether the boxImagePolygon "
              "parameter in the object is correctly set.");
    polygons.objectList.back().boxImagePolygon.clear();
    painter.Draw(canvas, config, polygons, true);
    EXPECT_TRUE(statuses.entries.empty()) << "an empty polygon is no polygon";

    painter.Draw(canvas, config, polygons, false);
    EXPECT_EQ(statuses.Text("ObjectArray"), "The frame_id of the Object does not match that of the Image. Check "
                                            "whether the Object frame_id is correctly set.");
}

TEST(OverlayObjects, NonFiniteValuesAreSkippedAndReported)
{
    ImageObjectUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageObjectUtils::AddObjectArrayStatus, &ImageObjectUtils::RemoveObjectArrayStatus);
    IppConfig config;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    custom::ObjectArray message;
    message.objectList.push_back(Box(nan, 10, 50, 50, 5));
    message.objectList.push_back(Box(10, 10, infinity, 50, 5));
    message.objectList.push_back(Box(10, 10, -50, 50, 5));
    message.objectList.push_back(Box(10, 10, 30, 30, 5));
    message.objectList.back().boxImagePolygon = {Point(1, 1), Point(nan, 5), Point(-1e15, 1)};
    // Wholly outside, however far: nothing to see, nothing wrong.
    message.objectList.push_back(Box(1e12, 10, 50, 50, 5));
    cv::Mat canvas = Canvas();
    painter.Draw(canvas, config, message, true);
    EXPECT_FALSE(statuses.Text("ObjectArray").isEmpty());
    // Only the valid box is drawn.
    EXPECT_TRUE(IsColour(At(canvas, 10, 25), 0, 142, 243));
    EXPECT_EQ(At(canvas, 600, 300)[3], 0);
    EXPECT_EQ(At(canvas, 639, 30)[3], 0);

    custom::ObjectArray infinite;
    infinite.objectList.push_back(Box(10, 10, 30, 30, 5));
    infinite.objectList.back().boxImagePolygon = {Point(1, 1), Point(5, 5), Point(-1e15, std::nan(""))};
    canvas = Canvas();
    painter.Draw(canvas, config, infinite, true);
    EXPECT_EQ(statuses.Text("ObjectArray"), "A coordinate of boxImage or boxImagePolygon of an object is not a finite "
                                            "number. Check whether the object is correctly set.");
}

TEST(OverlayObjects, ShapesReachingFarBeyondTheCanvasShowTheirVisiblePart)
{
    ImageObjectUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageObjectUtils::AddObjectArrayStatus, &ImageObjectUtils::RemoveObjectArrayStatus);
    IppConfig config;
    custom::ObjectArray message;
    // A 6000-pixel box from (100, 100) on a 1280 canvas: its left and top edges show.
    message.objectList.push_back(Box(100, 100, 6000, 6000, 5));
    // A polygon with one corner a billion pixels away: the edges towards it cross the canvas.
    custom::Object polygon = Box(0, 0, 1, 1, 5);
    polygon.boxImagePolygon = {Point(50, 600), Point(250, 600), Point(1e9, 650)};
    message.objectList.push_back(polygon);
    cv::Mat canvas = Canvas(1280, 720);
    painter.Draw(canvas, config, message, true);
    EXPECT_TRUE(statuses.Text("ObjectArray").isEmpty()) << statuses.Text("ObjectArray").toStdString();
    EXPECT_TRUE(IsColour(At(canvas, 100, 400), 0, 142, 243)) << At(canvas, 100, 400);   // left edge
    EXPECT_TRUE(IsColour(At(canvas, 900, 100), 0, 142, 243)) << At(canvas, 900, 100);   // top edge
    EXPECT_EQ(At(canvas, 1279, 400)[3], 0);                                              // no right edge
    EXPECT_TRUE(IsColour(At(canvas, 150, 600), 0, 142, 243)) << At(canvas, 150, 600);   // polygon's near edge
    EXPECT_TRUE(IsColour(At(canvas, 1200, 600), 0, 142, 243)) << At(canvas, 1200, 600); // its edge far away
}

TEST(OverlayTrafficLights, RectangleInTheLampColourAndItsFaults)
{
    ImageRectangleUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageRectangleUtils::AddImageRectangleArrayStatus,
                   &ImageRectangleUtils::RemoveImageRectangleArrayStatus);
    IppConfig config;
    custom::ImageRectangleArray message;
    custom::ImageRectangle light;
    light.rectImage.x = 500;
    light.rectImage.y = 50;
    light.rectImage.width = 20;
    light.rectImage.height = 50;
    light.classification = 1;  // "red": (255, 0, 0)
    message.rectangleList.push_back(light);
    cv::Mat canvas = Canvas();
    painter.Draw(canvas, config, message, true);
    EXPECT_TRUE(IsColour(At(canvas, 500, 75), 0, 0, 255)) << At(canvas, 500, 75);
    EXPECT_TRUE(statuses.entries.empty());

    message.rectangleList.back().classification = 9;
    message.rectangleList.push_back(light);
    message.rectangleList.back().rectImage.height = 0;
    painter.Draw(canvas, config, message, true);
    EXPECT_EQ(statuses.Text("ImageRectangleArray"),
              "The width and height of rectImage in an image rectangle are invalid. Check whether the rectImage "
              "parameter is correctly set.");
}

namespace {
custom::ImageLine Line(double c, double d, double fromY, double toY, uint8_t classification = 0)
{
    custom::ImageLine line;
    line.c = c;
    line.d = d;
    line.startPoint = Point(c * fromY + d, fromY);
    line.endPoint = Point(c * toY + d, toY);
    line.classification = classification;
    return line;
}
} // namespace

TEST(OverlayRoadLines, SolidAndDashedLinesFollowThePolynomial)
{
    ImageLineUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageLineUtils::AddImageLineArrayStatus, &ImageLineUtils::RemoveImageLineArrayStatus);
    IppConfig config;
    custom::ImageLineArray message;
    message.lineList.push_back(Line(0.5, 100, 100, 300));  // x = 0.5 y + 100, green
    cv::Mat canvas = Canvas();
    painter.Draw(canvas, config, message, true);
    EXPECT_TRUE(IsColour(At(canvas, 200, 200), 0, 255, 0)) << At(canvas, 200, 200);
    EXPECT_TRUE(IsColour(At(canvas, 187, 175), 0, 255, 0));
    EXPECT_EQ(At(canvas, 100, 200)[3], 0);
    EXPECT_TRUE(statuses.entries.empty());

    // Dashed: 50 rows drawn from the start row, then 50 left out.
    config.imageLineClassifications[0].isSolid = false;
    canvas = Canvas();
    painter.Draw(canvas, config, message, true);
    EXPECT_TRUE(IsColour(At(canvas, 162, 125), 0, 255, 0));
    EXPECT_EQ(At(canvas, 187, 175)[3], 0);
    EXPECT_TRUE(IsColour(At(canvas, 212, 225), 0, 255, 0));
}

TEST(OverlayRoadLines, EachFaultHasItsText)
{
    ImageLineUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageLineUtils::AddImageLineArrayStatus, &ImageLineUtils::RemoveImageLineArrayStatus);
    IppConfig config;
    cv::Mat canvas = Canvas();
    const auto drawOne = [&](const custom::ImageLine& line) {
        custom::ImageLineArray message;
        message.lineList.push_back(line);
        statuses.entries.clear();
        painter.Draw(canvas, config, message, true);
        return statuses.Text("ImageLineArray");
    };
    EXPECT_EQ(drawOne(Line(0, 0, 100, 200)),
              "The coefficients of the polynomial x = a*y^3 + b*y^2 + c*y + d in ImageLine are all 0. Check whether "
              "the ImageLine parameter is correctly set.");
    EXPECT_EQ(drawOne(Line(0.5, 10, 100, 100)), "The values of startPoint and endPoint in the image line are the "
                                                "same. Check whether the ImageLine parameter is correctly set.");
    custom::ImageLine sameRows = Line(0.5, 10, 100, 100.2);
    sameRows.endPoint.x += 0.05;
    EXPECT_EQ(drawOne(sameRows), "The ordinates of start point and end point are same. Check whether the ImageLine "
                                 "parameter is correctly set.");
    custom::ImageLine offCurve = Line(0.5, 10, 100, 200);
    offCurve.startPoint.x += 1;
    EXPECT_EQ(drawOne(offCurve), "The start point of an image line is not on the curve represented by the image "
                                 "line.");
    EXPECT_TRUE(IsColour(At(canvas, 85, 150), 0, 255, 0)) << "a start point off the curve still draws";
    EXPECT_TRUE(drawOne(Line(0.5, 10, 100, 200, 7)).startsWith("The classification field in the received ImageLine"));
}

TEST(OverlayRoadLines, HugeRowsAreBoundedByTheCanvas)
{
    ImageLineUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageLineUtils::AddImageLineArrayStatus, &ImageLineUtils::RemoveImageLineArrayStatus);
    IppConfig config;
    cv::Mat canvas = Canvas();
    custom::ImageLineArray message;
    message.lineList.push_back(Line(0.01, 300, -2500, 2500));  // reaches far beyond the canvas, within limits
    message.lineList.push_back(Line(0.01, 300, 10, 1e9));      // absurd end row
    custom::ImageLine notFinite = Line(0.01, 300, 10, 100);
    notFinite.a = std::numeric_limits<double>::infinity();
    message.lineList.push_back(notFinite);
    const auto start = std::chrono::steady_clock::now();
    painter.Draw(canvas, config, message, true);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(100));
    EXPECT_TRUE(IsColour(At(canvas, 302, 200), 0, 255, 0)) << At(canvas, 302, 200);
    EXPECT_EQ(statuses.Text("ImageLineArray"), "A coefficient or point of an image line is not a finite number. "
                                               "Check whether the ImageLine parameter is correctly set.");
    // A line that runs off sideways a long way is drawn up to the canvas edge.
    cv::Mat wide = Canvas();
    custom::ImageLineArray sideways;
    sideways.lineList.push_back(Line(1e6, 300, 0, 200));  // from (300, 0) off to the right at once
    sideways.lineList.push_back(Line(4, 0, 0, 2.5e11));   // x = 4 y, ending 1e12 pixels away
    statuses.entries.clear();
    painter.Draw(wide, config, sideways, true);
    EXPECT_TRUE(IsColour(At(wide, 400, 0), 0, 255, 0) || IsColour(At(wide, 400, 1), 0, 255, 0)) << At(wide, 400, 0);
    EXPECT_TRUE(IsColour(At(wide, 636, 159), 0, 255, 0)) << At(wide, 636, 159);
}

namespace {
orsa_msgs::ImageFreespace FreespaceMask(uint32_t width, uint32_t height)
{
    orsa_msgs::ImageFreespace freespace;
    freespace.width = width;
    freespace.height = height;
    freespace.pixelValues.assign(static_cast<std::size_t>(width) * height, 0);
    // The lower half of the mask is free.
    std::fill(freespace.pixelValues.begin() + static_cast<std::ptrdiff_t>(width) * (height / 2),
              freespace.pixelValues.end(), 1);
    return freespace;
}
} // namespace

TEST(OverlayFreespace, MaskIsStretchedOverTheCanvasInTheFreespaceColour)
{
    ImageFreespaceUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageFreespaceUtils::AddImageFreespaceStatus,
                   &ImageFreespaceUtils::RemoveImageFreespaceStatus);
    IppConfig config;
    cv::Mat canvas = Canvas(1920, 1080);
    painter.Draw(canvas, config, FreespaceMask(768, 512), true);
    EXPECT_TRUE(statuses.entries.empty());
    EXPECT_EQ(statuses.removals, 1);
    EXPECT_EQ(At(canvas, 100, 1000), cv::Vec4b(255, 0, 0, 102));
    EXPECT_EQ(At(canvas, 100, 539), cv::Vec4b(0, 0, 0, 0));
    EXPECT_EQ(At(canvas, 1919, 540), cv::Vec4b(255, 0, 0, 102));

    canvas = Canvas(1920, 1080);
    painter.Draw(canvas, config, FreespaceMask(800, 512), true);
    EXPECT_EQ(statuses.Level("ImageFreespace"), rviz::StatusProperty::Warn);
    EXPECT_EQ(statuses.Text("ImageFreespace"),
              "The ImageFreespace data received is too large, and the number of pixels in a freespace image (800 x "
              "512) exceeds 400000, occupying excessive network bandwidth. Resize the images to 768 x 512 or smaller "
              "before sending the ImageFreeSpace data.");
    EXPECT_EQ(At(canvas, 100, 1000), cv::Vec4b(255, 0, 0, 102)) << "a large mask is still drawn";

    canvas = Canvas(640, 360);
    painter.Draw(canvas, config, FreespaceMask(768, 512), true);
    EXPECT_EQ(statuses.Level("ImageFreespace"), rviz::StatusProperty::Error);
    EXPECT_EQ(statuses.Text("ImageFreespace"), "The width value (768) under ImageFreespace should not be greater than "
                                               "that (640) of the original image.");
    EXPECT_EQ(OpaquePixels(canvas), 0);

    orsa_msgs::ImageFreespace shortMask = FreespaceMask(400, 300);
    shortMask.pixelValues.resize(100);
    painter.Draw(canvas, config, shortMask, true);
    EXPECT_EQ(statuses.Text("ImageFreespace"), "The number of pixels (100) in the pixelValues field should be equal "
                                               "to the value of width x height (400 x 300).");
    shortMask.pixelValues.clear();
    painter.Draw(canvas, config, shortMask, true);
    EXPECT_EQ(statuses.Text("ImageFreespace"), "The number of pixels in the pixelValues field should not be zero.");
    cv::Mat empty;
    painter.Draw(empty, config, FreespaceMask(400, 300), true);
    EXPECT_EQ(statuses.Text("ImageFreespace"), "The width value of the original image should not be zero.");
    EXPECT_EQ(OpaquePixels(canvas), 0);
}

TEST(OverlaySegmentation, EveryPixelTakesItsClassColourAndBadCodesAreRefused)
{
    ImageSemanticSegmentationUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &ImageSemanticSegmentationUtils::AddImageSemanticSegmentationStatus,
                   &ImageSemanticSegmentationUtils::RemoveImageSemanticSegmentationStatus);
    IppConfig config;
    config.semanticSegmentationClassifications[300].color = {1, 2, 3};  // above 255: ignored
    orsa_msgs::SemanticSegmentation message;
    message.width = 640;
    message.height = 320;
    message.classification.assign(640 * 320, 0);
    std::fill(message.classification.begin() + 640 * 160, message.classification.end(), 9);  // not configured
    message.classification[0] = 2;
    cv::Mat canvas(360, 640, CV_8UC4, cv::Scalar(7, 7, 7, 7));
    painter.Draw(canvas, config, message, true);
    EXPECT_EQ(At(canvas, 0, 0), cv::Vec4b(89, 89, 255, 102));  // class 2 (255, 89, 89)
    EXPECT_EQ(At(canvas, 300, 100), cv::Vec4b(126, 254, 121, 102));  // class 0 (121, 254, 126)
    EXPECT_EQ(At(canvas, 300, 300), cv::Vec4b(0, 0, 0, 0)) << "an unconfigured class clears the pixel";
    EXPECT_TRUE(statuses.entries.empty());

    message.segmentationReservedByte = 1;  // bilinear
    painter.Draw(canvas, config, message, true);
    EXPECT_EQ(At(canvas, 300, 100), cv::Vec4b(126, 254, 121, 102));
    message.segmentationReservedByte = 7;
    canvas = Canvas();
    painter.Draw(canvas, config, message, true);
    EXPECT_EQ(statuses.Level("SemanticSegmentation"), rviz::StatusProperty::Error);
    EXPECT_EQ(OpaquePixels(canvas), 0);
}

namespace {
visualization_msgs::Marker MakeMarker(int type, std::initializer_list<std::pair<double, double>> points = {})
{
    visualization_msgs::Marker marker;
    marker.type = type;
    marker.scale.x = 4;
    marker.scale.y = 10;
    marker.scale.z = 1;
    marker.color.r = 1;
    marker.color.a = 1;
    for (const auto& xy : points) {
        geometry_msgs::Point point;
        point.x = xy.first;
        point.y = xy.second;
        marker.points.push_back(point);
    }
    return marker;
}
} // namespace

TEST(OverlayMarkers, SupportedTypesDrawInImagePixels)
{
    MarkerArrayUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &MarkerArrayUtils::AddMarkerArrayStatus, &MarkerArrayUtils::RemoveMarkerArrayStatus);
    IppConfig config;
    visualization_msgs::MarkerArray array;
    visualization_msgs::Marker cube = MakeMarker(visualization_msgs::Marker::CUBE);
    cube.pose.position.x = 50;
    cube.pose.position.y = 50;
    cube.scale.x = 20;
    array.markers.push_back(cube);
    array.markers.push_back(MakeMarker(visualization_msgs::Marker::LINE_STRIP, {{100, 200}, {300, 200}}));
    visualization_msgs::Marker points = MakeMarker(visualization_msgs::Marker::POINTS, {{400, 50}, {450, 50}});
    points.colors.resize(2);
    points.colors[1].g = 1;
    points.colors[1].a = 1;
    array.markers.push_back(points);
    visualization_msgs::Marker text = MakeMarker(visualization_msgs::Marker::TEXT_VIEW_FACING);
    text.text = "front\ncamera";
    text.pose.position.x = 300;
    text.pose.position.y = 300;
    array.markers.push_back(text);
    cv::Mat canvas = Canvas();
    painter.DrawMarkerArray(canvas, config, array, true);
    EXPECT_TRUE(IsColour(At(canvas, 50, 50), 0, 0, 255));
    EXPECT_TRUE(IsColour(At(canvas, 59, 54), 0, 0, 255));
    EXPECT_EQ(At(canvas, 62, 50)[3], 0);
    EXPECT_TRUE(IsColour(At(canvas, 200, 200), 0, 0, 255));
    EXPECT_EQ(At(canvas, 400, 50)[3], 0) << "first point has a transparent colour of its own";
    EXPECT_TRUE(IsColour(At(canvas, 450, 50), 0, 255, 0));
    int textPixels = 0;
    for (int y = 270; y < 330; ++y) {
        for (int x = 240; x < 360; ++x) {
            textPixels += At(canvas, x, y)[3] != 0 ? 1 : 0;
        }
    }
    EXPECT_GT(textPixels, 100);
    EXPECT_TRUE(statuses.entries.empty());
}

TEST(OverlayMarkers, ChecksSkipTheMarkerWithItsStatus)
{
    MarkerArrayUtils painter;
    StatusRecorder statuses;
    statuses.Watch(painter, &MarkerArrayUtils::AddMarkerArrayStatus, &MarkerArrayUtils::RemoveMarkerArrayStatus);
    IppConfig config;
    visualization_msgs::MarkerArray array;
    array.markers.push_back(MakeMarker(3));
    array.markers.push_back(MakeMarker(visualization_msgs::Marker::LINE_LIST, {{1, 1}, {2, 2}, {3, 3}}));
    visualization_msgs::Marker colours = MakeMarker(visualization_msgs::Marker::POINTS, {{1, 1}, {2, 2}});
    colours.colors.resize(1);
    array.markers.push_back(colours);
    visualization_msgs::Marker thin = MakeMarker(visualization_msgs::Marker::LINE_STRIP, {{10, 10}, {100, 10}});
    thin.scale.x = 0.5;
    array.markers.push_back(thin);
    visualization_msgs::Marker negative = MakeMarker(visualization_msgs::Marker::SPHERE);
    negative.scale.x = -8;
    array.markers.push_back(negative);
    array.markers.push_back(MakeMarker(visualization_msgs::Marker::ARROW, {{1, 1}}));
    visualization_msgs::Marker blank = MakeMarker(visualization_msgs::Marker::TEXT_VIEW_FACING);
    blank.text = " \n ";
    array.markers.push_back(blank);
    array.markers.push_back(MakeMarker(visualization_msgs::Marker::TRIANGLE_LIST, {{1, 1}, {1e30, 5}, {9, 9}}));
    cv::Mat canvas = Canvas();
    painter.DrawMarkerArray(canvas, config, array, false);

    EXPECT_EQ(statuses.Text("MarkerArray"), "The frame_id of the Marker does not match that of the Image. Check "
                                            "whether the Marker frame_id is correctly set.");
    EXPECT_EQ(statuses.Text("markers[0]"), "Current marker.type[3] is not supported to draw.");
    EXPECT_EQ(statuses.Level("markers[0]"), rviz::StatusProperty::Error);
    EXPECT_EQ(statuses.Text("markers[1]"), "Number of points should be a multiple of 2 for LINE_LIST marker, current "
                                           "is 3");
    EXPECT_EQ(statuses.Text("markers[2]"), "Number of colors[1] doesn't match number of points[2].");
    EXPECT_FALSE(statuses.Text("markers[3]").isEmpty()) << "a line thinner than one pixel";
    EXPECT_FALSE(statuses.Text("markers[4]").isEmpty()) << "a negative ellipse axis";
    EXPECT_EQ(statuses.Text("markers[5]"), "The marker.points number should be 2, current is 1.");
    EXPECT_EQ(statuses.Text("markers[6]"), "Text is empty or only consists of whitespace.");
    EXPECT_FALSE(statuses.Text("markers[7]").isEmpty()) << "a point far outside the canvas";
    EXPECT_EQ(OpaquePixels(canvas), 0) << "no faulty marker is drawn";

    // Fixed markers lose their status on the next frame.
    visualization_msgs::MarkerArray fixed;
    fixed.markers.push_back(MakeMarker(visualization_msgs::Marker::LINE_STRIP, {{10, 10}, {100, 10}}));
    painter.DrawMarkerArray(canvas, config, fixed, true);
    EXPECT_TRUE(statuses.Text("markers[0]").isEmpty());
    EXPECT_TRUE(statuses.Text("MarkerArray").isEmpty());
}

// A canvas of noise: whatever a label covers or blends with shows in a comparison.
cv::Mat Noise(int width, int height)
{
    cv::Mat canvas(height, width, CV_8UC4);
    cv::randu(canvas, cv::Scalar::all(0), cv::Scalar::all(256));
    return canvas;
}

TEST(OverlayLabels, CopiedLabelsAreExactlyWhatDrawingGives)
{
    LabelStrips strips;
    const std::vector<std::vector<std::string>> labels = {
        {"car 0.57"}, {"pedestrian 0.9", "ObjectID: 12 TrackID: 7"}, {"gjpqy|_ 1.0"}, {"W"}};
    const std::vector<cv::Scalar> colours = {{0, 128, 255, 255}, {40, 40, 40, 255}, {250, 250, 250, 255}};
    // Inside the canvas, and cut at each edge and corner.
    const std::vector<cv::Point> places = {{50, 60}, {-20, 100}, {300, -8}, {610, 330}, {-5, -5}};
    for (const auto& rows : labels) {
        for (const cv::Scalar& colour : colours) {
            for (const cv::Point& place : places) {
                cv::Mat drawn = Noise(640, 360);
                cv::Mat copied = drawn.clone();
                DisplayProperties direct;
                direct.boxColor = colour;
                int rowHeight = 0;
                const cv::Size size = GetMultiRowsLabelBackgroundSize(rows, direct, rowHeight);
                DrawLabel(drawn, rows, place, size, rowHeight, direct);

                DisplayProperties cached;
                cached.boxColor = colour;
                const LabelStrips::Strip& strip = strips.Get(rows, cached);
                EXPECT_EQ(strip.size, size);
                EXPECT_EQ(cached.baseline, direct.baseline);
                LabelStrips::Put(copied, strip, rows, place, cached);
                EXPECT_EQ(cv::norm(drawn, copied, cv::NORM_INF), 0) << rows.front() << " at " << place;
            }
        }
    }
    // Each label and colour drawn once.
    EXPECT_EQ(strips.Size(), labels.size() * colours.size());
}

TEST(OverlayLabels, TextReachingOutOfItsBoxIsDrawnEveryTimeAndTheKeptLabelsHaveALimit)
{
    LabelStrips strips(2);
    // Thick text spills out of the box measured for it: it cannot be copied, and still comes out as drawn.
    DisplayProperties thick;
    thick.boxColor = cv::Scalar(0, 0, 255, 255);
    thick.textThickness = 6;
    const std::vector<std::string> rows = {"WWW"};
    const LabelStrips::Strip& strip = strips.Get(rows, thick);
    EXPECT_TRUE(strip.pixels.empty());
    cv::Mat drawn = Noise(200, 100);
    cv::Mat put = drawn.clone();
    DrawLabel(drawn, rows, {20, 20}, strip.size, strip.rowHeight, thick);
    LabelStrips::Put(put, strip, rows, {20, 20}, thick);
    EXPECT_EQ(cv::norm(drawn, put, cv::NORM_INF), 0);

    DisplayProperties plain;
    plain.boxColor = cv::Scalar(0, 255, 0, 255);
    strips.Get({"a"}, plain);
    EXPECT_EQ(strips.Size(), 2U);
    // A third label: the kept ones are dropped, then it is kept.
    strips.Get({"b"}, plain);
    EXPECT_EQ(strips.Size(), 1U);
}

TEST(OverlayBoxes, OutlinesLookAsOpenCvDrawsThemAtAnySizeAndThickness)
{
    cv::RNG random(7);
    for (int thickness = 1; thickness <= 8; ++thickness) {
        int touched = 0;
        int differing = 0;
        for (int trial = 0; trial < 20; ++trial) {
            cv::Mat expected = Noise(300, 200);
            cv::Mat drawn = expected.clone();
            const cv::Mat before = expected.clone();
            const cv::Rect box(random.uniform(20, 60), random.uniform(20, 60), random.uniform(30, 200),
                               random.uniform(30, 120));
            const cv::Scalar colour(random.uniform(0, 256), random.uniform(0, 256), random.uniform(0, 256), 255);
            cv::rectangle(expected, box, colour, thickness, cv::LINE_AA);
            DrawBoxOutline(drawn, box, colour, thickness);
            // Within a few levels everywhere, and the very same on all but the odd corner pixel.
            EXPECT_LE(cv::norm(expected, drawn, cv::NORM_INF), 5) << "thickness " << thickness << " box " << box;
            cv::Mat changed;
            cv::compare(expected.reshape(1), before.reshape(1), changed, cv::CMP_NE);
            touched += cv::countNonZero(changed);
            cv::Mat different;
            cv::compare(expected.reshape(1), drawn.reshape(1), different, cv::CMP_NE);
            differing += cv::countNonZero(different);
        }
        EXPECT_LT(differing * 50, touched) << "thickness " << thickness << ": " << differing << " of " << touched;
    }
    // Boxes it does not take are OpenCV's own: reaching off the canvas, too small, too thick.
    for (const auto& [box, thickness] : std::vector<std::pair<cv::Rect, int>>{
             {{-10, 20, 100, 50}, 2}, {{250, 150, 100, 100}, 2}, {{50, 50, 6, 40}, 2}, {{40, 40, 120, 90}, 20}}) {
        cv::Mat expected = Noise(300, 200);
        cv::Mat drawn = expected.clone();
        cv::rectangle(expected, box, cv::Scalar(0, 200, 100, 255), thickness, cv::LINE_AA);
        DrawBoxOutline(drawn, box, cv::Scalar(0, 200, 100, 255), thickness);
        EXPECT_EQ(cv::norm(expected, drawn, cv::NORM_INF), 0) << box;
    }
}

// The vehicle panels' widgets painted offscreen and checked on pixels where the layout fixes them.
#include "car_view/control_status_panel.h"
#include "car_view/status_view_panel.h"
#include "road/road_elements_widget.h"
#include "scene_function/scene_function_widget.h"
#include "traffic/traffic_elements_widget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include <cmath>
#include <cstdlib>

namespace {

// Paints widget at its minimum size (times scale) on black (the panel's background is not the widget's).
QImage Paint(QWidget& widget, double scale = 1.0)
{
    widget.resize((QSizeF(widget.minimumSize()) * scale).toSize());
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::black);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// Whether any pixel in the box is close to colour (each channel within tolerance).
bool AnyNear(const QImage& image, const QRect& box, const QColor& colour, int tolerance = 40)
{
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (std::abs(pixel.red() - colour.red()) <= tolerance &&
                std::abs(pixel.green() - colour.green()) <= tolerance &&
                std::abs(pixel.blue() - colour.blue()) <= tolerance) {
                return true;
            }
        }
    }
    return false;
}

// Whether any pixel in the box is mostly red (a red drawn over the dark ruler or the ring).
bool AnyReddish(const QImage& image, const QRect& box)
{
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.red() > 100 && pixel.red() > 2 * pixel.green() && pixel.red() > 2 * pixel.blue()) {
                return true;
            }
        }
    }
    return false;
}

custom::VehicleStatus Status()
{
    custom::VehicleStatus status;
    status.gear = 4;
    status.vehicleSpeed = -12.6;
    status.throttle = 0.5;
    status.brake = 1.0;
    return status;
}

const QColor selectedGear(0x00, 0xdf, 0xff);
const QColor litLamp(0x22, 0xd3, 0x6b);
const QColor darkLamp(0x3a, 0x3b, 0x40);

TEST(CarViewStyle, SheetSetsThePropertiesIncludingTheFractionalAlpha)
{
    StatusViewPanel view;
    view.ReadConf();
    EXPECT_EQ(view.minimumSize(), QSize(376, 178));
    // The sheet says rgba(1, 233, 255, 178.5): Qt takes the fractional alpha and rounds it (the
    // widget's own default is 178, so 179 comes from the sheet).
    const QColor right = view.RightBarColor();
    EXPECT_EQ(right.red(), 1);
    EXPECT_EQ(right.green(), 233);
    EXPECT_EQ(right.alpha(), 179);
}

TEST(CarViewPaint, SelectedGearIsDrawnInItsColourOnly)
{
    StatusViewPanel view;
    view.ReadConf();
    view.UpdateValue(Status());
    const QImage drive = Paint(view);
    const QRect dRect(174, 17, 20, 22);
    const QRect pRect(115, 17, 20, 22);
    EXPECT_TRUE(AnyNear(drive, dRect, selectedGear, 20));
    EXPECT_FALSE(AnyNear(drive, pRect, selectedGear, 20));

    custom::VehicleStatus status = Status();
    status.gear = 15;  // valid, but no letter
    view.UpdateValue(status);
    const QImage none = Paint(view);
    EXPECT_FALSE(AnyNear(none, dRect, selectedGear, 20));
    EXPECT_TRUE(AnyNear(none, dRect, QColor(0x98, 0x99, 0x9e), 30));
}

TEST(CarViewPaint, TurnLampsLightByTurnLight)
{
    StatusViewPanel view;
    view.ReadConf();
    const QRect left(296, 22, 21, 19);
    const QRect right(350, 22, 21, 19);
    custom::VehicleStatus status = Status();
    status.turnLight = 1;
    view.UpdateValue(status);
    QImage image = Paint(view);
    EXPECT_TRUE(AnyNear(image, left, litLamp, 20));
    EXPECT_FALSE(AnyNear(image, right, litLamp, 20));
    EXPECT_TRUE(AnyNear(image, right, darkLamp, 10));
    status.turnLight = 3;
    view.UpdateValue(status);
    image = Paint(view);
    EXPECT_TRUE(AnyNear(image, left, litLamp, 20));
    EXPECT_TRUE(AnyNear(image, right, litLamp, 20));

    // The control view draws lit lamps only.
    ControlStatusPanel control;
    control.ReadConf();
    status.turnLight = 2;
    control.UpdateValue(status);
    image = Paint(control);
    EXPECT_FALSE(AnyNear(image, left, darkLamp, 10));
    EXPECT_FALSE(AnyNear(image, left, litLamp, 20));
    EXPECT_TRUE(AnyNear(image, right, litLamp, 20));
}

TEST(CarViewPaint, RingOverrunPastOneTurnIsDrawnWithTheGradient)
{
    StatusViewPanel view;
    view.ReadConf();
    // A point of the ring 30 degrees clockwise of its start (90 degrees): red only past a whole turn.
    const double angle = 60 * M_PI / 180;
    const QPoint probe(static_cast<int>(std::lround(105 + 56 * std::cos(angle))),
                       static_cast<int>(std::lround(107 - 56 * std::sin(angle))));
    const QRect box(probe.x() - 1, probe.y() - 1, 3, 3);
    custom::VehicleStatus status = Status();
    status.steeringWheelAngle = 350;
    view.UpdateValue(status);
    const QImage turn = Paint(view);
    EXPECT_FALSE(AnyReddish(turn, box));
    EXPECT_TRUE(AnyNear(turn, box, QColor(14, 124, 97), 30));  // the ring itself, half transparent on black
    status.steeringWheelAngle = 700;
    view.UpdateValue(status);
    EXPECT_TRUE(AnyReddish(Paint(view), box));
    // Turned the other way the gradient runs the other way: red just left of the start.
    status.steeringWheelAngle = -700;
    view.UpdateValue(status);
    const QImage back = Paint(view);
    EXPECT_FALSE(AnyReddish(back, box));
    const QRect mirrored(2 * 105 - probe.x() - 1, probe.y() - 1, 3, 3);
    EXPECT_TRUE(AnyReddish(back, mirrored));
}

TEST(CarViewPaint, BarHeightsFollowTheClampedValue)
{
    StatusViewPanel view;
    view.ReadConf();
    view.UpdateValue(Status());  // throttle 50 % -> 43.5 px, brake 100 % -> 87 px
    const QImage image = Paint(view);
    const int bottom = 60 + 100 - 6;
    const QColor throttle(1, 233, 255);
    // Right bar at x 282 + 14: lit up to 43.5 px, not above.
    EXPECT_TRUE(AnyNear(image, QRect(296, bottom - 40, 1, 1), throttle, 90));
    EXPECT_FALSE(AnyNear(image, QRect(296, bottom - 48, 1, 1), throttle, 90));
    EXPECT_TRUE(AnyReddish(image, QRect(254, bottom - 84, 1, 1)));
    EXPECT_FALSE(AnyReddish(image, QRect(254, bottom - 92, 1, 1)));

    // At twice the size the same picture, twice as large.
    const QImage twice = Paint(view, 2.0);
    EXPECT_TRUE(AnyNear(twice, QRect(2 * 296, 2 * (bottom - 40), 1, 1), throttle, 90));
    EXPECT_FALSE(AnyNear(twice, QRect(2 * 296, 2 * (bottom - 48), 1, 1), throttle, 90));
}

TEST(SceneFunctionPaint, UnknownStatusDrawsNoIconAndAKnownOneDoes)
{
    rviz_plugin::SceneFunctionWidget widget;
    widget.ReadConf();
    EXPECT_EQ(widget.minimumSize(), QSize(376, 134));
    const QRect iconBox(55, 11, 46, 46);
    custom::NavigationStatus status;
    widget.UpdateNavigationStatusValue(status);
    EXPECT_FALSE(AnyNear(Paint(widget), iconBox, selectedGear, 30));
    status.navStatus = 1;
    widget.UpdateNavigationStatusValue(status);
    EXPECT_TRUE(AnyNear(Paint(widget), iconBox, selectedGear, 30));
}

TEST(SceneFunctionPaint, ObstacleStandsWhereTheLayoutPutsIt)
{
    rviz_plugin::SceneFunctionWidget widget;
    widget.ReadConf();
    custom::KeyObject object;
    object.speedOrientation.w = 1;
    object.lateralDistance = 50;
    object.verticalDistance = -3;
    widget.UpdateKeyObjectValue(object);
    EXPECT_EQ(widget.Layout().quadrant, 4);
    const QImage image = Paint(widget);
    const QColor orange(0xff, 0x8a, 0x00);
    // Obstacle icon (30 x 30 at 0.66) at (183 + 80 - 2, 24 + 24).
    EXPECT_TRUE(AnyNear(image, QRect(261 + 4, 48 + 4, 12, 12), orange, 40));
    EXPECT_FALSE(AnyNear(image, QRect(183, 92, 20, 20), orange, 40));
    // Yaw from the orientation: 90 degrees about z.
    object.speedOrientation.z = std::sin(M_PI / 4);
    object.speedOrientation.w = std::cos(M_PI / 4);
    widget.UpdateKeyObjectValue(object);
    EXPECT_NEAR(widget.ObstacleYaw(), 90, 1e-9);
}

TEST(TrafficPaint, TheLitLampFollowsTheState)
{
    rviz_plugin::TrafficElementsWidget widget;
    widget.ReadConf();
    EXPECT_EQ(widget.minimumSize(), QSize(376, 129));
    custom::TrafficInfo info;
    info.trafficLightState = 3;
    widget.UpdateTrafficInfoValue(info);
    QImage image = Paint(widget);
    const QRect redLamp(204 + 8, 14 + 20 - 3, 4, 6);
    const QRect greenLamp(204 + 8, 14 + 83 - 3, 4, 6);
    EXPECT_TRUE(AnyNear(image, redLamp, QColor(0xff, 0x3f, 0x3f), 30));
    EXPECT_FALSE(AnyNear(image, greenLamp, litLamp, 30));
    info.trafficLightState = 1;
    widget.UpdateTrafficInfoValue(info);
    image = Paint(widget);
    EXPECT_FALSE(AnyNear(image, redLamp, QColor(0xff, 0x3f, 0x3f), 30));
    EXPECT_TRUE(AnyNear(image, greenLamp, litLamp, 30));
}

TEST(RoadPaint, LaneChangeIconsFollowTheirFields)
{
    rviz_plugin::RoadElementsWidget widget;
    widget.ReadConf();
    EXPECT_EQ(widget.minimumSize(), QSize(376, 182));
    const QRect changeLane(116, 59, 24, 24);
    custom::RoadInfo road;
    road.canChangeLane = 1;
    widget.UpdateRoadInfoValue(road);
    EXPECT_TRUE(AnyNear(Paint(widget), changeLane, litLamp, 30));
    road.canChangeLane = 0;
    widget.UpdateRoadInfoValue(road);
    const QImage no = Paint(widget);
    EXPECT_FALSE(AnyNear(no, changeLane, litLamp, 30));
    EXPECT_TRUE(AnyNear(no, changeLane, QColor(0xff, 0x3f, 0x3f), 30));
}

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

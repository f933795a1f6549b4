// The key object's geometry, the panels' value texts and the newest-value hand-over between threads.
#include "vehicle_panels_logic/latest_value_relay.h"
#include "vehicle_panels_logic/panel_values.h"
#include "vehicle_panels_logic/scene_geometry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

namespace {

using namespace rviz_plugin;

// The quadrant bases of the shipped layout.
const std::array<QuadrantBase, 4> quadrants{
    {{183, 92, 0}, {260, 92, 180}, {260, 24, 180}, {183, 24, 0}}};
const IconSize car{30, 50};
const IconSize obstacle{30, 30};

TEST(ObstacleLayout, QuadrantsAxesAndTheOriginGoToTheEarlierQuadrant)
{
    const ObstacleLayout origin = LayOutObstacle(0, 0, quadrants, car, obstacle);
    EXPECT_EQ(origin.quadrant, 1);
    EXPECT_FALSE(origin.showDistances);
    EXPECT_EQ(LayOutObstacle(-5, 0, quadrants, car, obstacle).quadrant, 2);
    EXPECT_EQ(LayOutObstacle(0, -5, quadrants, car, obstacle).quadrant, 3);
    EXPECT_EQ(LayOutObstacle(-1, -1, quadrants, car, obstacle).quadrant, 3);
    EXPECT_EQ(LayOutObstacle(2, 3, quadrants, car, obstacle).quadrant, 1);
    EXPECT_TRUE(LayOutObstacle(-5, 0, quadrants, car, obstacle).showDistances);
}

TEST(ObstacleLayout, FarObjectIsDrawnAtTheEdgeButMeasuredTrue)
{
    const ObstacleLayout layout = LayOutObstacle(50, -3, quadrants, car, obstacle);
    EXPECT_EQ(layout.quadrant, 4);
    EXPECT_DOUBLE_EQ(layout.px, 80);
    EXPECT_DOUBLE_EQ(layout.py, -24);
    EXPECT_DOUBLE_EQ(layout.car.x, 183);
    EXPECT_DOUBLE_EQ(layout.car.y, 24);
    EXPECT_DOUBLE_EQ(layout.obstacle.x, 183 + 80 - 2);
    EXPECT_DOUBLE_EQ(layout.obstacle.y, 24 + 24);
    EXPECT_NEAR(layout.angle, 3.43, 0.01);
    EXPECT_EQ(FormatFixed(layout.angle, 0), "3");
    // The arc sweeps the drawn distances' angle (10 m by 3 m), reversed in the fourth quadrant.
    EXPECT_NEAR(layout.arcSweep, -std::atan2(3.0, 10.0) * 180 / M_PI, 1e-9);
    EXPECT_DOUBLE_EQ(layout.arcStart, 0);
    // Labels: below the car in the lower quadrants, right of the obstacle in the first and fourth.
    EXPECT_DOUBLE_EQ(layout.xLabel.x, 183 + 40 - 15 - 6);
    EXPECT_DOUBLE_EQ(layout.xLabel.y, 24 - 50);
    EXPECT_DOUBLE_EQ(layout.yLabel.x, 183 + 80 + 30 + 30);
    EXPECT_DOUBLE_EQ(layout.yLabel.y, 24 + 12 - 6);
}

TEST(ObstacleLayout, SecondQuadrantSweepsBackwardsFromItsAngle)
{
    const ObstacleLayout layout = LayOutObstacle(-4, 4, quadrants, car, obstacle);
    EXPECT_EQ(layout.quadrant, 2);
    EXPECT_DOUBLE_EQ(layout.arcStart, 180);
    EXPECT_NEAR(layout.arcSweep, -45, 1e-9);
    EXPECT_DOUBLE_EQ(layout.yLabel.x, 260 - 32 + 30 - 30 - 14);
    EXPECT_DOUBLE_EQ(layout.xLabel.y, 92 + 50 - 14);
}

TEST(ConstrainDistance, CutsMagnitudesKeepsSigns)
{
    double x = -25;
    double y = 4;
    ConstrainDistance(10, x, y);
    EXPECT_DOUBLE_EQ(x, -10);
    EXPECT_DOUBLE_EQ(y, 4);
}

TEST(Quaternion2Rpy, YawPitchRollInDegreesAndGimbalLock)
{
    const double half = M_PI / 4;  // 90 degrees about z
    auto rpy = Quaternion2Rpy(0, 0, std::sin(half), std::cos(half));
    EXPECT_NEAR(rpy[0], 0, 1e-9);
    EXPECT_NEAR(rpy[1], 90, 1e-9);
    EXPECT_NEAR(rpy[2], 0, 1e-9);
    // About y by +90: gimbal lock, yaw 0 and pitch 90.
    rpy = Quaternion2Rpy(0, std::sin(half), 0, std::cos(half));
    EXPECT_NEAR(rpy[0], 90, 1e-6);
    EXPECT_DOUBLE_EQ(rpy[1], 0);
    // An unnormalised quaternion is normalised first: twice the length, same rotation.
    rpy = Quaternion2Rpy(0, 0, 2 * std::sin(half), 2 * std::cos(half));
    EXPECT_NEAR(rpy[1], 90, 1e-9);
    rpy = Quaternion2Rpy(std::sin(M_PI / 12), 0, 0, std::cos(M_PI / 12));  // 30 degrees about x
    EXPECT_NEAR(rpy[2], 30, 1e-9);
}

TEST(PanelValues, TextsAndBarHeights)
{
    EXPECT_EQ(FormatFixed(-12.6, 0), "-13");
    EXPECT_EQ(FormatFixed(100 * 0.005, 1), "0.5");
    EXPECT_EQ(ToStringWithUnits(10000), "10000.0m");
    EXPECT_EQ(ToStringWithUnits(10001), "10.0km");
    EXPECT_EQ(ToStringWithUnits(123456), "123.5km");
    EXPECT_EQ(CapitalizeFirst("PARK ROAD"), "Park road");
    EXPECT_EQ(CapitalizeFirst("PEDESTRIAN \n SITTING"), "Pedestrian \n sitting");
    EXPECT_EQ(CapitalizeFirst(""), "");
    EXPECT_DOUBLE_EQ(ValueException(50, 0, 100), 43.5);
    EXPECT_DOUBLE_EQ(ValueException(150, 0, 100), 87);
    EXPECT_DOUBLE_EQ(ValueException(-5, 0, 100), 0);
    EXPECT_EQ(IconOfLabel("No U turn"), ":/icons/noUTurnPic.svg");
    EXPECT_EQ(IconOfLabel("T Junction"), ":/icons/tJunctionPic.svg");
    EXPECT_EQ(IconOfLabel("Alert \n people"), ":/icons/alertPeoplePic.svg");
    EXPECT_EQ(IconOfLabel("No left \n right"), ":/icons/noLeftRightPic.svg");
}

TEST(LatestValueRelay, ABurstCostsTheReaderOneTakeOfTheNewest)
{
    LatestValueRelay<int> relay;
    int value = 0;
    EXPECT_FALSE(relay.Take(value));
    EXPECT_TRUE(relay.Offer(1));
    EXPECT_FALSE(relay.Offer(2));
    EXPECT_FALSE(relay.Offer(3));
    EXPECT_TRUE(relay.Take(value));
    EXPECT_EQ(value, 3);
    EXPECT_FALSE(relay.Take(value));
    EXPECT_TRUE(relay.Offer(4));
}

TEST(LatestValueRelay, ProducerThreadNeverLosesTheLastValue)
{
    LatestValueRelay<int> relay;
    std::atomic<int> tells{0};
    constexpr int count = 20000;
    std::thread producer([&] {
        for (int i = 1; i <= count; ++i) {
            if (relay.Offer(i)) {
                ++tells;
            }
        }
    });
    int last = 0;
    int takes = 0;
    while (last != count) {
        int value = 0;
        if (relay.Take(value)) {
            EXPECT_GT(value, last);
            last = value;
            ++takes;
        }
    }
    producer.join();
    // Every tell had a take to serve, and a take never saw a value twice.
    EXPECT_LE(takes, tells.load());
    EXPECT_GE(tells.load(), 1);
}

} // namespace

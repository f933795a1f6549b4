// Coordinate texts, the flags' scale, and the thread that sends routes.
#include "route_planner_logic/flag_scale.h"
#include "route_planner_logic/route_point_sender.h"
#include "route_planner_logic/route_point_text.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>

namespace rviz_plugin {
namespace {

TEST(RoutePointText, ExactlyTwoCommasAndFiniteNumbers)
{
    std::array<float, 3> point{};
    EXPECT_FALSE(ParseRoutePoint("1,2", point));
    EXPECT_TRUE(ParseRoutePoint("1,2,3", point));
    EXPECT_EQ(point, (std::array<float, 3>{1, 2, 3}));
    EXPECT_FALSE(ParseRoutePoint("1,2,3,4", point));
    EXPECT_TRUE(ParseRoutePoint(" -1.5 , 2e1,0 ", point));
    EXPECT_EQ(point, (std::array<float, 3>{-1.5F, 20.0F, 0.0F}));
    // Reading stops at the first bad part; the parts before it were read.
    point = {9, 9, 9};
    EXPECT_FALSE(ParseRoutePoint("4,x,6", point));
    EXPECT_EQ(point, (std::array<float, 3>{4, 9, 9}));
    for (const char* bad : {",,", "1,,3", "1,2,", "nan,1,2", "1,inf,2", "1e39,0,0", "1 2,3,4", "0x,1,2"}) {
        EXPECT_FALSE(ParseRoutePoint(bad, point)) << bad;
    }
    EXPECT_EQ(FormatRoutePoint(101, 202.5, -3), "101.000000,202.500000,-3.000000");
    ASSERT_TRUE(ParseRoutePoint(FormatRoutePoint(1.25, -2, 1e6), point));
    EXPECT_EQ(point, (std::array<float, 3>{1.25F, -2.0F, 1e6F}));
}

TEST(FlagScale, PerspectiveFollowsDistanceOrthographicTheVisibleWidth)
{
    EXPECT_DOUBLE_EQ(FlagScaleFactor("rviz/Orbit", 800, 0, 70), 1.0);
    EXPECT_DOUBLE_EQ(FlagScaleFactor("rviz/Orbit", 800, 0, 140), 2.0);
    EXPECT_EQ(FlagScaleFactor("rviz/Orbit", 800, 0, 0.0069), -1.0);
    EXPECT_EQ(FlagScaleFactor("rviz/Orbit", 800, 0, 7.1e6), -1.0);
    // w = 800 * 0.01 * 0.5 = 4
    EXPECT_DOUBLE_EQ(FlagScaleFactor("rviz/TopDownOrtho", 800, 0.01, 0), 17.0 / 4.0);
    EXPECT_EQ(FlagScaleFactor("rviz/TopDownOrtho", 800, 0, 0), -1.0);
    EXPECT_EQ(FlagScaleFactor("rviz/TopDownOrtho", 800, 1e3, 0), 0.00017);
}

TEST(RoutePointSender, RoutesGoOutInOrderWithoutHoldingTheCaller)
{
    using Channel = RoutePointSender::Channel;
    std::mutex mutex;
    std::vector<std::pair<Channel, double>> sent;
    std::atomic<bool> release{false};
    {
        RoutePointSender sender(
            [&](Channel channel, const RoutePointSender::Point& point) {
                while (!release) {
                    std::this_thread::yield();
                }
                std::lock_guard<std::mutex> lock(mutex);
                sent.emplace_back(channel, point[0]);
            },
            std::chrono::microseconds(100));
        RoutePointSender::Job route;
        route.wayPoints = {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}};
        route.hasEnd = true;
        route.end = {4, 0, 0};
        sender.Send(route);
        RoutePointSender::Job endOnly;
        endOnly.hasEnd = true;
        endOnly.end = {5, 0, 0};
        sender.Send(endOnly);
        RoutePointSender::Job clear = route;
        clear.clear = true;
        sender.Send(clear);
        // Nothing could be published yet, and the caller was not held.
        {
            std::lock_guard<std::mutex> lock(mutex);
            EXPECT_TRUE(sent.empty());
        }
        release = true;
        sender.Flush();
        RoutePointSender::Job last;
        last.wayPoints = {{6, 0, 0}};
        sender.Send(last);  // handed in just before the end: still sent
    }
    const std::vector<std::pair<Channel, double>> expected{
        {Channel::WayPoint, 1}, {Channel::WayPoint, 2}, {Channel::WayPoint, 3}, {Channel::EndPoint, 4},
        {Channel::EndPoint, 5}, {Channel::Clear, 1},    {Channel::Clear, 2},    {Channel::Clear, 3},
        {Channel::Clear, 4},    {Channel::WayPoint, 6}};
    EXPECT_EQ(sent, expected);
}

TEST(RoutePointSender, PausesBetweenPoints)
{
    std::vector<std::chrono::steady_clock::time_point> times;
    RoutePointSender sender([&](RoutePointSender::Channel, const RoutePointSender::Point&) {
        times.push_back(std::chrono::steady_clock::now());
    });
    RoutePointSender::Job route;
    route.wayPoints = {{1, 0, 0}, {2, 0, 0}};
    route.hasEnd = true;
    sender.Send(route);
    sender.Flush();
    ASSERT_EQ(times.size(), 3U);
    EXPECT_GE(times[1] - times[0], std::chrono::milliseconds(33));
    EXPECT_GE(times[2] - times[1], std::chrono::milliseconds(33));
}

} // namespace
} // namespace rviz_plugin

#include "kora_vision_logic/redraw_schedule.h"
#include "kora_vision_logic/vision_name.h"
#include "kora_vision_logic/wall_layout.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <algorithm>

using rviz_plugin::EvaluateOptimalLayout;
using rviz_plugin::GetMaxPageNumber;
using rviz_plugin::WallGrid;

TEST(WallLayout, MostSquareGridWithAtMostFourColumns)
{
    struct Expected {
        int items;
        int rows;
        int columns;
    };
    // Ties go to the larger column count: 2 side by side, 3 in two columns, 5 and 6 in three.
    const Expected cases[] = {{1, 1, 1}, {2, 1, 2}, {3, 2, 2},  {4, 2, 2},  {5, 2, 3},  {6, 2, 3},
                              {7, 3, 3}, {9, 3, 3}, {10, 3, 4}, {12, 3, 4}, {13, 4, 4}, {16, 4, 4}};
    for (const Expected& e : cases) {
        const WallGrid grid = EvaluateOptimalLayout(e.items, 1, 16);
        EXPECT_EQ(grid.count, e.items);
        EXPECT_EQ(grid.rows, e.rows) << e.items << " items";
        EXPECT_EQ(grid.columns, e.columns) << e.items << " items";
        EXPECT_GE(grid.rows * grid.columns, e.items);
    }
}

TEST(WallLayout, PagesOfTheListAndFullScreenStates)
{
    // Page 2 of 5 items in the list shows the fifth item alone.
    const WallGrid second = EvaluateOptimalLayout(5, 2, 4);
    EXPECT_EQ(second.first, 4);
    EXPECT_EQ(second.count, 1);
    EXPECT_EQ(second.rows * second.columns, 1);
    // A page past the end shows nothing: deleting the last item of the last page leaves it empty.
    EXPECT_EQ(EvaluateOptimalLayout(4, 2, 4).count, 0);
    EXPECT_EQ(EvaluateOptimalLayout(0, 1, 4).count, 0);
    EXPECT_EQ(EvaluateOptimalLayout(30, 2, 16).count, 14);
    EXPECT_EQ(EvaluateOptimalLayout(30, 2, 16).first, 16);

    EXPECT_EQ(GetMaxPageNumber(0, 4), 1);
    EXPECT_EQ(GetMaxPageNumber(4, 4), 1);
    EXPECT_EQ(GetMaxPageNumber(5, 4), 2);
    EXPECT_EQ(GetMaxPageNumber(30, 4), 8);
    EXPECT_EQ(GetMaxPageNumber(30, 16), 2);
}

TEST(VisionName, RenumberKeepsTheRestAndTopicReplacementKeepsTheNumber)
{
    EXPECT_EQ(rviz_plugin::RenumberVisionName("(3)/camera/front", 2), "(2)/camera/front");
    EXPECT_EQ(rviz_plugin::RenumberVisionName("(10)No Image Topic", 1), "(1)No Image Topic");
    EXPECT_EQ(rviz_plugin::RenumberVisionName("(1)a)b", 4), "(4)a)b");
    EXPECT_EQ(rviz_plugin::ReplaceVisionTopic("(2)No Image Topic", "/camera/left"), "(2)/camera/left");
    EXPECT_EQ(rviz_plugin::ReplaceVisionTopic("(2)/camera/left", ""), "(2)No Image Topic");
}

TEST(VisionName, LoadKeysSortByTheirFirstNumber)
{
    QStringList keys = {"(2)/camera/b", "(10)/camera/c", "(1)/camera/a", "(3)/x1/y0"};
    std::stable_sort(keys.begin(), keys.end(), rviz_plugin::CompareLoadConfigKey);
    EXPECT_EQ(keys, (QStringList{"(1)/camera/a", "(2)/camera/b", "(3)/x1/y0", "(10)/camera/c"}));
    // Numbers beyond 64 bits and keys without digits neither crash nor jump ahead of real ones.
    EXPECT_TRUE(rviz_plugin::CompareLoadConfigKey("(7)a", "(99999999999999999999999)b"));
    EXPECT_TRUE(rviz_plugin::CompareLoadConfigKey("(7)a", "(x)b"));
    EXPECT_FALSE(rviz_plugin::CompareLoadConfigKey("(x)b", "(7)a"));
}

TEST(RedrawSchedule, DrawsOnlyWhenWhatTheWindowShowsChanged)
{
    rviz_plugin::RedrawSchedule schedule;
    // The first tick draws: the window has never been drawn by the wall.
    EXPECT_TRUE(schedule.Due(false, 640, 360, false));
    // A 15-fps camera on a 30-Hz tick: every other tick brings a picture.
    int drawn = 0;
    for (int tick = 0; tick < 30; ++tick) {
        drawn += schedule.Due(tick % 2 == 0, 640, 360, false) ? 1 : 0;
    }
    EXPECT_EQ(drawn, 15);
    // A resize draws once at the new size, not on every tick after it.
    EXPECT_TRUE(schedule.Due(false, 512, 288, false));
    EXPECT_FALSE(schedule.Due(false, 512, 288, false));
    // A mark (a setting, a clear, a time hidden) draws once and is taken back.
    schedule.MarkChanged();
    schedule.MarkChanged();
    EXPECT_TRUE(schedule.Due(false, 512, 288, false));
    EXPECT_FALSE(schedule.Due(false, 512, 288, false));
    // The scene seen through the camera moves on its own: every tick draws while it is shown.
    for (int tick = 0; tick < 3; ++tick) {
        EXPECT_TRUE(schedule.Due(false, 512, 288, true));
    }
    EXPECT_FALSE(schedule.Due(false, 512, 288, false));
}

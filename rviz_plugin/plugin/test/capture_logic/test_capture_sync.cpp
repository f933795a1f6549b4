// Lining capture stamps up on the reference camera, and the export's limits and names.
#include "capture_logic/capture_sync.h"
#include "capture_logic/point_cloud2_thread.h"
#include "capture_logic/save_thread_base.h"

#include <gtest/gtest.h>

using rviz_plugin::GetAdjacentTime;
using rviz_plugin::SynchroniseStamps;

namespace {
ros::Time Ms(int milliseconds)
{
    return ros::Time(100, 0) + ros::Duration(milliseconds / 1000.0);
}
} // namespace

TEST(CaptureSync, NearestStampOnEitherSideUsedOnceWithTiesToTheEarlier)
{
    // 95 is as near to 100 as 105: the earlier wins; 105 then serves 200 (no upper limit on the distance).
    EXPECT_EQ(GetAdjacentTime({Ms(100), Ms(200)}, {Ms(105), Ms(95)}), std::vector<ros::Time>({Ms(95), Ms(105)}));
    // A stamp never serves twice, even when it is the nearest to both.
    EXPECT_EQ(GetAdjacentTime({Ms(100), Ms(101)}, {Ms(100), Ms(500)}), std::vector<ros::Time>({Ms(100), Ms(500)}));
    // Candidates run out: fewer results.
    EXPECT_EQ(GetAdjacentTime({Ms(0), Ms(33), Ms(66)}, {Ms(40)}).size(), 1u);
    EXPECT_TRUE(GetAdjacentTime({Ms(0)}, {}).empty());
}

TEST(CaptureSync, EveryTopicKeepsAsManyStampsAsTheShortestLineUp)
{
    const std::map<std::string, std::vector<ros::Time>> stamps = {
        {"/front_avFrame", {Ms(66), Ms(0), Ms(33)}},
        {"/rear_avFrame", {Ms(2), Ms(35), Ms(70)}},
        {"/lidar", {Ms(10), Ms(60)}},
    };
    const auto synced = SynchroniseStamps("/front_avFrame", stamps, 3);
    ASSERT_EQ(synced.size(), 3u);
    EXPECT_EQ(synced.at("/front_avFrame"), std::vector<ros::Time>({Ms(0), Ms(33)}));
    EXPECT_EQ(synced.at("/rear_avFrame"), std::vector<ros::Time>({Ms(2), Ms(35)}));
    EXPECT_EQ(synced.at("/lidar"), std::vector<ros::Time>({Ms(10), Ms(60)}));
    // The wanted count caps the line-up; an unknown reference or nothing wanted gives nothing.
    EXPECT_EQ(SynchroniseStamps("/front_avFrame", stamps, 1).at("/rear_avFrame"), std::vector<ros::Time>({Ms(2)}));
    EXPECT_TRUE(SynchroniseStamps("/none", stamps, 3).empty());
    EXPECT_TRUE(SynchroniseStamps("/front_avFrame", stamps, 0).empty());
}

TEST(CaptureExport, CloudLimitAndFileNames)
{
    EXPECT_FALSE(rviz_plugin::PointCloud2Thread::IsCloudTooLarge(2863311530ULL));
    EXPECT_TRUE(rviz_plugin::PointCloud2Thread::IsCloudTooLarge(2863311531ULL));
    EXPECT_EQ(rviz_plugin::SaveThreadBase::FileName("camera_front", ros::Time(12, 345), "png"),
              "camera_front-12-345.png");
    EXPECT_EQ(rviz_plugin::SaveThreadBase::ExportName("/rig/front_avFrame", "_avFrame"), "rig-front");
    EXPECT_EQ(rviz_plugin::SaveThreadBase::ExportName("/lidar_avFrame_points", "_avFrame"), "lidar_avFrame_points");
}

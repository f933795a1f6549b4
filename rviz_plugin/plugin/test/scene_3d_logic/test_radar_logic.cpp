// The radar displays' field checks, statuses, texts and track boxes, without a scene.
#include "recording_sink.h"

#include "scene_3d_logic/radar_checks.h"
#include "scene_3d_logic/radar_markers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace rviz_plugin;

namespace {
// Runs a message's points through the record as the visual does; returns the passed indices.
template <typename Item, typename Values>
std::vector<std::size_t> CheckAll(RadarStatusRecord& record, RecordingSink& sink, const std::vector<Item>& items,
                                  Values values)
{
    std::vector<std::size_t> passed;
    for (std::size_t index = 0; index < items.size(); ++index) {
        record.ResetCurrStatus();
        record.Check(values(items[index]));
        if (record.IsAllStatusEmpty()) {
            passed.push_back(index);
        } else {
            record.CollectCurrStatus();
        }
    }
    record.UpdateStatus(sink);
    return passed;
}
} // namespace

TEST(RadarChecks, DetectBoundsArePlainAndNaNPasses)
{
    RadarStatusRecord record(RadarDetectLimits());
    RecordingSink sink;
    std::vector<custom::RadarDetect> points(20);
    for (std::size_t index = 0; index < points.size(); ++index) {
        points[index].x = static_cast<float>(index);
        points[index].vx = index % 2 == 0 ? 128.0F : 128.5F;  // ten of twenty bad
    }
    points[2].y = std::numeric_limits<float>::quiet_NaN();
    const auto passed = CheckAll(record, sink, points, RadarDetectCheckedValues);
    ASSERT_EQ(passed.size(), 10U);
    EXPECT_EQ(passed[1], 2U);
    ASSERT_TRUE(sink.Has("vx"));
    EXPECT_EQ(sink.LevelOf("vx"), StatusSink::Error);
    EXPECT_EQ(sink.TextOf("vx"), "The value of vx in the received data exceeds the value range [-128, 128]. Ensure "
                                 "this value is within the range.");
    EXPECT_FALSE(sink.Has("x"));

    // A clean message deletes the statuses.
    CheckAll(record, sink, std::vector<custom::RadarDetect>(3), RadarDetectCheckedValues);
    EXPECT_TRUE(sink.statuses.empty());
}

TEST(RadarChecks, ALaterBadPointKeepsTheEarlierPointsOtherFaults)
{
    RadarStatusRecord record(RadarDetectLimits());
    RecordingSink sink;
    std::vector<custom::RadarDetect> points(2);
    points[0].x = 60000;
    points[1].vy = -65;
    CheckAll(record, sink, points, RadarDetectCheckedValues);
    EXPECT_TRUE(sink.Has("x"));
    EXPECT_TRUE(sink.Has("vy"));
    EXPECT_EQ(sink.TextOf("x"), "The value of x is out of range. Use the coordinate compensation function to adjust "
                                "the value. Ensure it is within [-50000, 50000].");
}

TEST(RadarChecks, TrackLimitsAreLopsidedAndPrintedShort)
{
    RadarStatusRecord record(RadarTrackLimits());
    RecordingSink sink;
    std::vector<custom::RadarTrack> tracks(4);
    tracks[0].length = 204.7F;
    tracks[0].ax = -25.6F;
    tracks[1].length = 205.0F;
    tracks[2].ax = 25.6F;
    tracks[3].height = 51.2F;
    const auto passed = CheckAll(record, sink, tracks, RadarTrackCheckedValues);
    ASSERT_EQ(passed, std::vector<std::size_t>{0});
    EXPECT_EQ(sink.TextOf("length"), "The value of length in the received data exceeds the value range [0, 204.7]. "
                                     "Ensure this value is within the range.");
    EXPECT_EQ(sink.TextOf("ax"), "The value of ax in the received data exceeds the value range [-25.6, 25.55]. "
                                 "Ensure this value is within the range.");
    EXPECT_EQ(sink.TextOf("height"), "The value of height in the received data exceeds the value range [0, 51.1]. "
                                     "Ensure that this value is within the range.");
    const auto columns = RadarColumnLimits(RadarTrackLimits());
    EXPECT_EQ(columns.count("z"), 1U);
    EXPECT_FLOAT_EQ(columns.at("ay").second, 25.55F);
}

TEST(RadarMarkers, ArrowsBelowATenthAreInvisibleAndTextsFallBackToADash)
{
    RadarArrowSettings arrow{QColor(255, 255, 255, 102), {0.3F, 0.3F, 0.3F}};
    visualization_msgs::Marker marker;
    RadarMarkers::SetArrow(marker, arrow, 1, 2, 3, 0.09F, 0);
    EXPECT_EQ(marker.color.a, 0);
    RadarMarkers::SetArrow(marker, arrow, 1, 2, 3, 0.06F, 0.08F);
    EXPECT_NEAR(marker.color.a, 0.4, 1e-6);
    EXPECT_NEAR(marker.scale.x, 0.03, 1e-6);
    EXPECT_NEAR(marker.pose.orientation.z, std::sin(std::atan2(0.08, 0.06) / 2), 1e-6);

    RadarMarkers::SetText(marker, "", QColor(Qt::white));
    EXPECT_EQ(marker.text, "-");
    EXPECT_EQ(marker.color.a, 0);
    RadarMarkers::Park(marker);
    EXPECT_EQ(marker.pose.position.x, RadarMarkers::parkingPosition);

    custom::RadarDetect point;
    point.id = 7;
    point.x = 1.25F;
    point.y = -3.5F;
    point.ambiguity = 200;
    std::vector<bool> ticked(12, false);
    ticked[0] = ticked[1] = ticked[11] = true;
    EXPECT_EQ(RadarMarkers::InfoText(RadarDetectSettings::InfoFieldNames(), ticked,
                                     RadarMarkers::DetectFieldTexts(point)),
              "id: 7\nx: 1.25\nambiguity: 200");
    EXPECT_EQ(RadarMarkers::InfoText(RadarDetectSettings::InfoFieldNames(), std::vector<bool>(12, false),
                                     RadarMarkers::DetectFieldTexts(point)),
              "");
    EXPECT_EQ(RadarTrackSettings::InfoFieldNames().size(), 20U);
    EXPECT_EQ(RadarMarkers::TrackFieldTexts(custom::RadarTrack()).size(), 20U);
}

TEST(RadarMarkers, ANumberThatIsNotFiniteAnywhereMakesTheMarkerUndrawable)
{
    visualization_msgs::Marker marker;
    marker.pose.orientation.w = 1;
    EXPECT_TRUE(RadarMarkers::IsFinite(marker));
    marker.pose.position.y = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(RadarMarkers::IsFinite(marker));
    marker.pose.position.y = 0;
    marker.scale.x = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(RadarMarkers::IsFinite(marker));
    marker.scale.x = 1;
    marker.points.resize(3);
    marker.points[2].z = -std::numeric_limits<double>::infinity();
    EXPECT_FALSE(RadarMarkers::IsFinite(marker));
}

TEST(RadarMarkers, TrackBoxesAreWireCuboidsOrAFlatRectangle)
{
    custom::RadarTrack track;
    track.length = 4;
    track.width = 2;
    track.height = 0;
    auto points = RadarMarkers::TrackBoxPoints(track);
    ASSERT_EQ(points.size(), 8U);
    EXPECT_EQ(points[0].x, -2);
    EXPECT_EQ(points[0].y, -1);
    EXPECT_EQ(points[1].y, 1);
    EXPECT_EQ(points[7].x, -2);
    for (const auto& point : points) {
        EXPECT_EQ(point.z, 0);
    }
    track.height = 3;
    points = RadarMarkers::TrackBoxPoints(track);
    ASSERT_EQ(points.size(), 24U);
    EXPECT_EQ(points[0].z, -1.5);
    EXPECT_EQ(points[8].z, 1.5);
    EXPECT_EQ(points[16].z, -1.5);
    EXPECT_EQ(points[17].z, 1.5);
    EXPECT_EQ(points[17].x, points[16].x);
}

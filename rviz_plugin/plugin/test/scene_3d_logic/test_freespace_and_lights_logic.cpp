// The freespace grid checks and layout, the traffic light field checks and looks, and the choice of
// robot descriptions, without a scene.
#include "recording_sink.h"

#include "scene_3d_logic/stereo_freespace_checker.h"
#include "scene_3d_logic/traffic_light_field_check.h"
#include "scene_3d_logic/urdf_params.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace rviz_plugin;

namespace {
orsa_msgs::StereoFreespace Grid(double xStart, double xEnd, double xResolution, std::size_t cells)
{
    orsa_msgs::StereoFreespace grid;
    grid.info.xStart = xStart;
    grid.info.xEnd = xEnd;
    grid.info.xResolution = xResolution;
    grid.info.yStart = 0;
    grid.info.yEnd = 10;
    grid.info.yResolution = 1;
    grid.cellData.resize(cells);
    for (auto& cell : grid.cellData) {
        cell.status = 1;
        cell.probability = 1;
    }
    return grid;
}
} // namespace

TEST(StereoFreespaceChecker, GridDescriptionChecksRunTogetherAtTheirEdges)
{
    RecordingSink sink;
    StereoFreespaceChecker checker(sink);
    EXPECT_FALSE(checker.IsInvalidStereoFreespaceData(Grid(0, 500, 0.5, 10)));  // exactly 1000 cells
    EXPECT_TRUE(sink.statuses.empty());
    EXPECT_TRUE(checker.IsInvalidStereoFreespaceData(Grid(0, 500.25, 0.5, 10)));  // 1000.5 rounds up
    EXPECT_EQ(sink.TextOf("StereoFreespaceMaxXIndex"),
              "Maximum value of the xIndex attribute [1001] of the StereoFreespace data type is out of range. Adjust "
              "the value to ensure it is within [0, 1000].");
    EXPECT_FALSE(checker.IsInvalidStereoFreespaceData(Grid(0, 10, 1, 500000)));
    EXPECT_FALSE(sink.Has("StereoFreespaceMaxXIndex"));
    EXPECT_TRUE(checker.IsInvalidStereoFreespaceData(Grid(0, 10, 1, 500001)));
    EXPECT_EQ(sink.LevelOf("StereoFreespaceCellDataSize"), StatusSink::Error);

    sink.statuses.clear();
    EXPECT_TRUE(checker.IsInvalidStereoFreespaceData(Grid(60000, 60000, 0, 0)));
    for (const char* name : {"StereoFreespaceInfoXStartAndXEndEqual", "StereoFreespaceInfoXResolution",
                             "StereoFreespaceCellDataEmpty", "StereoFreespaceInfoXStart", "StereoFreespaceInfoXEnd",
                             "StereoFreespaceMaxXIndex"}) {
        EXPECT_TRUE(sink.Has(name)) << name;
    }
    EXPECT_FALSE(sink.Has("StereoFreespaceInfoYStart"));
    EXPECT_EQ(sink.TextOf("StereoFreespaceInfoXStart"),
              "The xStart attribute [60000] of the StereoFreespace data type is out of range. Adjust the value to "
              "ensure it is within [-50000, 50000].");
}

TEST(StereoFreespaceChecker, CellsLayOutPerClassAndBadCellsAreSkippedWithAWarning)
{
    RecordingSink sink;
    StereoFreespaceChecker checker(sink);
    orsa_msgs::StereoFreespace grid = Grid(10, 0, 1, 6);
    grid.cellData[0].xIndex = 3;  // toward smaller x: x 7
    grid.cellData[0].yIndex = 2;
    grid.cellData[1].status = 0;
    grid.cellData[2].status = 2;
    grid.cellData[3].status = 3;  // skipped
    grid.cellData[4].probability = 1.0000001F;  // within the tolerance
    grid.cellData[5].xIndex = 10;  // past the last index 9
    FreespaceTiles tiles;
    LayOutFreespaceCells(grid, checker, tiles);
    EXPECT_EQ(tiles.counts[0], 1U);
    EXPECT_EQ(tiles.counts[1], 2U);
    EXPECT_EQ(tiles.counts[2], 1U);
    EXPECT_FLOAT_EQ(tiles.tiles[1][0].x, 7);
    EXPECT_FLOAT_EQ(tiles.tiles[1][0].y, 2);
    EXPECT_EQ(sink.LevelOf("StereoFreespaceCellDataStatus"), StatusSink::Warn);
    EXPECT_EQ(sink.TextOf("StereoFreespaceCellDataXIndex"),
              "The xIndex attribute [10] of the StereoFreespace data type is out of range. Adjust the value to ensure "
              "it is within [0, 9].");
    EXPECT_FALSE(sink.Has("StereoFreespaceCellDataProbability"));

    grid.cellData[4].probability = 1.1F;
    grid.cellData[3].status = 1;
    grid.cellData[5].xIndex = 9;
    LayOutFreespaceCells(grid, checker, tiles);
    EXPECT_FALSE(sink.Has("StereoFreespaceCellDataStatus")) << "the warning goes with the next clean message";
    EXPECT_TRUE(sink.Has("StereoFreespaceCellDataProbability"));
    EXPECT_EQ(tiles.counts[1], 3U);
}

TEST(TrafficLightFieldCheck, BoundsAndStatusesOfAnEntry)
{
    EXPECT_FALSE(TrafficLightFieldCheck::ScaleAvailable(0));
    EXPECT_TRUE(TrafficLightFieldCheck::ScaleAvailable(5));
    EXPECT_FALSE(TrafficLightFieldCheck::IntersectionNumAvailable(std::size_t{51}));
    EXPECT_TRUE(TrafficLightFieldCheck::IntersectionNumAvailable(std::size_t{50}));
    EXPECT_TRUE(TrafficLightFieldCheck::CountdownAvailable(139));
    EXPECT_FALSE(TrafficLightFieldCheck::CountdownAvailable(140));

    orsa_msgs::StereoTrafficLight entry;
    entry.scale = 1;
    entry.transform.rotation.w = 1;
    orsa_msgs::Light light;
    light.type = orsa_msgs::Light::COUNTDOWN_LIGHT;
    light.countdownValue = 139;
    entry.lights.push_back(light);
    EXPECT_TRUE(TrafficLightFieldCheck::StereoTrafficLightDataAvailable(entry));
    EXPECT_TRUE(TrafficLightFieldCheck::ErrorStatuses(entry).empty());

    entry.direction = 2;
    entry.transform.rotation.x = 1.5;
    entry.lights[0].type = 9;
    entry.lights[0].countdownValue = 200;  // not a countdown lamp any more: not checked
    EXPECT_FALSE(TrafficLightFieldCheck::StereoTrafficLightDataAvailable(entry));
    const auto statuses = TrafficLightFieldCheck::ErrorStatuses(entry);
    ASSERT_EQ(statuses.size(), 3U);
    EXPECT_EQ(statuses[0].first, "rotation.x");
    EXPECT_EQ(statuses[0].second, "The value is set to 1.5,Value range: [-1, 1]");
    EXPECT_EQ(statuses[1].second, "The value is set to 2, It can only be 0 or 1");
    EXPECT_EQ(statuses[2].first, "type");
}

TEST(TrafficLightLook, CountdownDigitsAndLampColours)
{
    EXPECT_EQ(TrafficLightLook::GetCountdownIndex(139), std::make_pair(14, 24));
    EXPECT_EQ(TrafficLightLook::GetCountdownIndex(0), std::make_pair(1, 15));
    EXPECT_EQ(TrafficLightLook::GetCountdownIndex(200), std::make_pair(1, 15));
    EXPECT_EQ(TrafficLightLook::LampStates(4), std::vector<uint8_t>(3, 4));
    EXPECT_EQ(TrafficLightLook::LampStates(0), std::vector<uint8_t>(3, 0));
    EXPECT_EQ(TrafficLightLook::LampStates(orsa_msgs::Light::RED), (std::vector<uint8_t>{4, 4, 3}));
    EXPECT_EQ(TrafficLightLook::LampStates(orsa_msgs::Light::GREEN), (std::vector<uint8_t>{1, 4, 4}));
    EXPECT_EQ(TrafficLightLook::ToColor(4), (TrafficLightLook::Rgba{0, 0, 0, 1}));
    EXPECT_EQ(TrafficLightLook::ToColor(9), (TrafficLightLook::Rgba{0.5F, 0.5F, 0.5F, 1}));
    EXPECT_EQ(TrafficLightLook::ToColor(2), (TrafficLightLook::Rgba{1, 1, 0, 1}));
}

TEST(UrdfParams, OnlyRobotsWithANameAreOffered)
{
    const std::map<std::string, std::string> params = {
        {"vehicle_description", R"(<?xml version="1.0"?><robot name="car"><link name="base_link"/></robot>)"},
        {"not_xml", "speed 10"},
        {"other_root", R"(<model name="x"/>)"},
        {"nameless", "<robot/>"},
    };
    std::vector<std::string> errors;
    const auto offered = GetUrdfParams(
        {"/vehicle_description", "/not_xml", "/other_root", "/nameless", "/missing", "/bad name"},
        [&params](const std::string& name, std::string& value) {
            if (name == "bad name") {
                throw std::runtime_error("invalid characters");
            }
            const auto found = params.find(name);
            if (found == params.end()) {
                return false;
            }
            value = found->second;
            return true;
        },
        [&errors](const std::string& name, const std::string& error) { errors.push_back(name + ": " + error); });
    EXPECT_EQ(offered, std::vector<std::string>{"vehicle_description"});
    EXPECT_EQ(errors, std::vector<std::string>{"bad name: invalid characters"});
}

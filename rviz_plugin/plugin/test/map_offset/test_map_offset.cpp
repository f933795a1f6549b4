// The map offset read from a real master's parameters, and the settings file's parse rules.
#include "../support/ros_test_main.h"
#include "map_offset/map_offset.h"
#include "map_offset/map_offset_filter_setting_file.h"

#include <gtest/gtest.h>
#include <ros/node_handle.h>

#include <fstream>

namespace {

class MapOffset : public testing::Test {
protected:
    void TearDown() override
    {
        node.deleteParam("offsetX");
        node.deleteParam("offsetY");
    }
    void SetOffset(double x, double y)
    {
        node.setParam("offsetX", x);
        node.setParam("offsetY", y);
    }
    ros::NodeHandle node;
};

TEST_F(MapOffset, NothingMovesUnlessBothParametersAreSet)
{
    Ogre::Vector3 point(1, 2, 3);
    std::string text = "unchanged";
    Orsa::ApplyMapOffset(point);
    Orsa::ApplyMapOffset(point, text);
    EXPECT_EQ(point, Ogre::Vector3(1, 2, 3));
    EXPECT_EQ(text, "unchanged");

    node.setParam("offsetX", 100.0);
    Orsa::ApplyMapOffset(point);
    Orsa::SubMapOffset(point);
    geometry_msgs::PointStamped stamped;
    stamped.point.x = 5;
    Orsa::ApplyMapOffset(stamped);
    EXPECT_EQ(point, Ogre::Vector3(1, 2, 3));
    EXPECT_EQ(stamped.point.x, 5);
}

TEST_F(MapOffset, AddedToWhatGoesOutAndSubtractedFromWhatIsShown)
{
    SetOffset(100, 200);
    Ogre::Vector3 point(1, 2, 3);
    Orsa::ApplyMapOffset(point);
    EXPECT_EQ(point, Ogre::Vector3(101, 202, 3));
    Orsa::SubMapOffset(point);
    EXPECT_EQ(point, Ogre::Vector3(1, 2, 3));

    geometry_msgs::PointStamped stamped;
    stamped.point.x = 1;
    stamped.point.y = 2;
    stamped.point.z = 3;
    Orsa::ApplyMapOffset(stamped);
    EXPECT_DOUBLE_EQ(stamped.point.x, 101);
    EXPECT_DOUBLE_EQ(stamped.point.y, 202);
    EXPECT_DOUBLE_EQ(stamped.point.z, 3);

    visualization_msgs::Marker marker;
    Orsa::ApplyMapOffset(Ogre::Vector3(1, 2, 3), marker);
    EXPECT_EQ(marker.text, "x = 101.000000\ny = 202.000000\nz = 3.000000");

    // A changed parameter counts at the next call.
    SetOffset(-1, -2);
    point = Ogre::Vector3(1, 2, 3);
    Orsa::ApplyMapOffset(point);
    EXPECT_EQ(point, Ogre::Vector3(0, 0, 3));
}

TEST_F(MapOffset, LargeOffsetsLoseTheFractionInFloat)
{
    SetOffset(2e7, 2e7);
    Ogre::Vector3 point(0.3F, 100000.5F, 0);
    Orsa::ApplyMapOffset(point);
    // Floats near 2e7 are 2 apart: the fractions are gone.
    EXPECT_EQ(point.x, 20000000.0F);
    EXPECT_EQ(point.y, 20100000.0F);
    Orsa::SubMapOffset(point);
    EXPECT_EQ(point.x, 0.0F);
    EXPECT_EQ(point.y, 100000.0F);
    // The text is computed in double from the float point: the float's own value, offset exactly.
    std::string text;
    Orsa::ApplyMapOffset(Ogre::Vector3(0.5F, 0, 0), text);
    EXPECT_EQ(text, "x = 20000000.500000\ny = 20000000.000000\nz = 0.000000");
    EXPECT_EQ(Orsa::ShiftCoordinate(100000.5F, 0.0), 100000.5F);
    EXPECT_EQ(Orsa::ShiftCoordinate(16777216.0F, 1.0), 16777216.0F);  // 2^24 + 1 is not a float
}

class SettingsFile : public testing::Test {
protected:
    bool Parse(const std::string& content)
    {
        const std::string path = work / "map_offset_filter_setting.json";
        std::ofstream(path) << content;
        file.SetFilePath(path);
        return file.ParseConfigFile();
    }
    test_support::TempDir work;
    Orsa::MapOffsetFilterSettingFile file;
};

TEST_F(SettingsFile, NamesAreKeptWithoutLeadingSlashes)
{
    ASSERT_TRUE(Parse(R"({"topics": ["/objects", "//radar/points", "plain", "/"], "tf_child_frame_id": ["/lidar"]})"));
    EXPECT_EQ(file.GetNeedModifiedTopics(), (std::vector<std::string>{"objects", "radar/points", "plain", ""}));
    EXPECT_EQ(file.GetNeedModifiedTfChildFrameIds(), std::vector<std::string>{"lidar"});
    EXPECT_TRUE(file.IsTopicNeedApplyOffset("objects"));
    EXPECT_TRUE(file.IsTopicNeedApplyOffset("///objects"));
    EXPECT_FALSE(file.IsTopicNeedApplyOffset("objects/"));
    EXPECT_TRUE(file.IsTopicNeedApplyOffset("/radar/points"));
    EXPECT_TRUE(file.IsChildFrameIdNeedApplyOffset("lidar"));
    EXPECT_FALSE(file.IsChildFrameIdNeedApplyOffset("objects"));

    std::string name = "/a/b";
    Orsa::MapOffsetFilterSettingFile::EraseSlash(name);
    EXPECT_EQ(name, "a/b");
    name = "///";
    Orsa::MapOffsetFilterSettingFile::EraseSlash(name);
    EXPECT_EQ(name, "");
}

TEST_F(SettingsFile, MissingKeysWrongTypesAndBrokenFilesFail)
{
    EXPECT_FALSE(Parse(R"({"topics": ["a"]})"));
    EXPECT_EQ(file.GetNeedModifiedTopics(), std::vector<std::string>{"a"});  // what was read so far
    EXPECT_FALSE(Parse(R"({"tf_child_frame_id": []})"));
    EXPECT_FALSE(Parse(R"({"topics": ["a", 3, "b"], "tf_child_frame_id": []})"));
    EXPECT_EQ(file.GetNeedModifiedTopics(), std::vector<std::string>{"a"});
    EXPECT_FALSE(Parse(R"({"topics": "a", "tf_child_frame_id": []})"));
    EXPECT_FALSE(Parse(R"(["topics"])"));
    EXPECT_FALSE(Parse("{\"topics\": ["));
    EXPECT_TRUE(Parse(R"({"topics": [], "tf_child_frame_id": [], "other": 1})"));
    EXPECT_TRUE(file.GetNeedModifiedTopics().empty());
    file.SetFilePath(work / "absent.json");
    EXPECT_FALSE(file.ParseConfigFile());
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "map_offset_test", [] { return RUN_ALL_TESTS(); });
}

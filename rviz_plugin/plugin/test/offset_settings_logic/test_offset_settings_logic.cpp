// The topics and frames of the offset settings: what is listed, ticked, filtered and written.
#include "offset_settings_logic/frame_tree.h"
#include "offset_settings_logic/topic_selection.h"

#include <gtest/gtest.h>

namespace rviz_plugin {
namespace {

using Topics = std::vector<std::pair<std::string, std::string>>;
using Names = std::vector<std::string>;

const Topics live{{"/objects", "custom/ObjectArray"},
                  {"/camera_front", "custom/Video"},
                  {"/tf", "tf2_msgs/TFMessage"},
                  {"/lanes", "visualization_msgs/MarkerArray"},
                  {"/path", "nav_msgs/Path"}};

TEST(TopicSelection, FileTopicsMatchWithoutSlashesAndStaleOnesStayUnknown)
{
    TopicSelection selection;
    selection.Build(live, {"objects", "//gone", "/path"});
    const auto& entries = selection.GetEntries();
    ASSERT_EQ(entries.size(), 5U);  // "tf" is not listed
    EXPECT_EQ(entries[0].name, "/objects");
    EXPECT_TRUE(entries[0].checked);
    EXPECT_FALSE(entries[1].enabled);  // video: not 3D data
    EXPECT_FALSE(entries[1].checked);
    EXPECT_FALSE(entries[2].checked);
    EXPECT_TRUE(entries[3].checked);
    EXPECT_EQ(entries[4].name, "gone");
    EXPECT_EQ(entries[4].type, TopicSelection::unknownType);
    EXPECT_TRUE(entries[4].checked);
    EXPECT_EQ(selection.GetChecked(), (Names{"objects", "path", "gone"}));
    EXPECT_FALSE(selection.IsModified());
    EXPECT_EQ(selection.GetTypes(), (Names{"All", "custom/ObjectArray", "custom/Video",
                                           "visualization_msgs/MarkerArray", "nav_msgs/Path", "unknown"}));
    selection.SetChecked(1, true);  // disabled: stays unticked
    EXPECT_FALSE(selection.GetEntries()[1].checked);
    selection.SetChecked(2, true);
    EXPECT_TRUE(selection.IsModified());

    // A file topic whose live type cannot be shifted does not make the page modified.
    selection.Build(live, {"camera_front"});
    EXPECT_FALSE(selection.IsModified());
}

TEST(TopicSelection, HeaderTicksTheShownAndFiltersCombine)
{
    TopicSelection selection;
    selection.Build(live, {});
    EXPECT_EQ(selection.GetHeaderState(), TopicSelection::HeaderState::Unchecked);
    selection.TypeFilter("nav_msgs/Path");
    selection.SetShownChecked(true);
    EXPECT_EQ(selection.GetChecked(), Names{"path"});
    EXPECT_EQ(selection.GetHeaderState(), TopicSelection::HeaderState::Checked);
    selection.TypeFilter("All");
    EXPECT_EQ(selection.GetHeaderState(), TopicSelection::HeaderState::Partial);
    selection.SearchFilter("o");  // objects, camera_front; the search applies over the type filter
    EXPECT_TRUE(selection.GetEntries()[0].visible);
    EXPECT_TRUE(selection.GetEntries()[1].visible);
    EXPECT_FALSE(selection.GetEntries()[3].visible);
    selection.TypeFilter("custom/Video");
    EXPECT_FALSE(selection.GetEntries()[0].visible);
    selection.TypeFilter("All");
    selection.SetShownChecked(true);
    EXPECT_EQ(selection.GetChecked(), (Names{"objects", "path"}));
    selection.SearchFilter("");
    selection.SetShownChecked(false);
    EXPECT_TRUE(selection.GetChecked().empty());
}

TEST(FrameTree, TicksRunDownToChildrenAndUpToParents)
{
    FrameTree tree;
    tree.Build({{"base_link", "map"}, {"/camera", "base_link"}, {"lidar", "base_link"}, {"odom", "map"}},
               {"/odom", "far_away"});
    const auto& nodes = tree.GetNodes();
    ASSERT_EQ(nodes[0].name, "root");
    const int map = tree.Find("map");
    const int base = tree.Find("base_link");
    const int camera = tree.Find("camera");
    ASSERT_GT(map, 0);
    EXPECT_EQ(nodes[static_cast<std::size_t>(map)].parent, 0);
    EXPECT_EQ(nodes[static_cast<std::size_t>(camera)].parent, base);
    EXPECT_EQ(nodes[static_cast<std::size_t>(tree.Find("far_away"))].parent, 0);  // kept from the file
    EXPECT_EQ(nodes[static_cast<std::size_t>(map)].state, FrameTree::State::Partial);
    EXPECT_FALSE(tree.IsModified());

    tree.SetChecked(base, true);
    EXPECT_EQ(nodes[static_cast<std::size_t>(camera)].state, FrameTree::State::Checked);
    EXPECT_EQ(nodes[static_cast<std::size_t>(map)].state, FrameTree::State::Checked);  // both children ticked
    EXPECT_EQ(tree.GetChecked(), (Names{"map", "base_link", "camera", "lidar", "odom", "far_away"}));
    EXPECT_TRUE(tree.IsModified());
    tree.SetChecked(camera, false);
    EXPECT_EQ(nodes[static_cast<std::size_t>(base)].state, FrameTree::State::Partial);
    EXPECT_EQ(nodes[static_cast<std::size_t>(map)].state, FrameTree::State::Partial);
    tree.SetChecked(map, false);
    EXPECT_EQ(tree.GetChecked(), Names{"far_away"});
    tree.SetChecked(99, true);  // out of range: nothing
    EXPECT_EQ(tree.GetChecked(), Names{"far_away"});
}

TEST(FrameTree, LoopsAndRepeatsDoNotDuplicateFrames)
{
    FrameTree tree;
    tree.Build({{"a", "b"}, {"b", "a"}, {"c", "a"}, {"c", "a"}}, {});
    ASSERT_EQ(tree.GetNodes().size(), 4U);  // root, a, b, c once each
    for (const char* name : {"a", "b", "c"}) {
        EXPECT_GT(tree.Find(name), 0) << name;
    }
}

} // namespace
} // namespace rviz_plugin

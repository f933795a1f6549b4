// The offset settings dialog against a real master: the offset, the live topics, the settings file
// written on OK and read back on reopening, the refresh signal, and the unsaved-changes question.
#include "../support/ros_test_main.h"
#include "foundation/config_file_tool.h"
#include "offset_settings/offset_settings_gui.h"
#include "offset_settings/offset_xy_display.h"
#include "offset_settings/topic_list.h"

#include <geometry_msgs/PointStamped.h>
#include <nav_msgs/Path.h>
#include <ros/master.h>
#include <ros/node_handle.h>
#include <sensor_msgs/Image.h>
#include <visualization_msgs/MarkerArray.h>

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <filesystem>
#include <fstream>

namespace rviz_plugin {
namespace {

using Names = std::vector<std::string>;

class OffsetSettingsDialog : public testing::Test {
protected:
    void SetUp() override
    {
        node.setParam("orsaPath", work.Path().string());
        node.setParam("offsetX", 100.0);
        node.setParam("offsetY", 200.0);
        publishers = {node.advertise<visualization_msgs::MarkerArray>("/lanes", 1),
                      node.advertise<nav_msgs::Path>("/drive/path", 1),
                      node.advertise<sensor_msgs::Image>("/image", 1)};
        refresh = node.subscribe<geometry_msgs::PointStamped>(
            "TopicRefreshMap", 10, [this](const geometry_msgs::PointStamped::ConstPtr& point) { received.push_back(*point); });
        ASSERT_TRUE(test_support::WaitFor(
            []() {
                ros::master::V_TopicInfo topics;
                ros::master::getTopics(topics);
                return std::count_if(topics.begin(), topics.end(),
                                     [](const auto& topic) { return topic.name == "/drive/path"; }) == 1;
            },
            std::chrono::seconds(10)));
        gui.Init();
        gui.SetPublisher(node.advertise<geometry_msgs::PointStamped>("TopicRefreshMap", 10));
        gui.RefreshPage();
        list = gui.findChild<TopicList*>();
        header = gui.findChild<QCheckBox*>("TopicHeader");
        ok = gui.findChild<QPushButton*>("OkCancelButton_ok");
        ASSERT_NE(list, nullptr);
        ASSERT_NE(header, nullptr);
        ASSERT_NE(ok, nullptr);
    }
    void TearDown() override
    {
        for (const char* name : {"orsaPath", "offsetX", "offsetY"}) {
            node.deleteParam(name);
        }
    }
    std::string FilePath() const { return work / "config/map_offset_filter_setting.json"; }
    // The list's rows as "<text> <checked> <enabled>".
    Names Rows() const
    {
        Names rows;
        for (int row = 0; row < list->count(); ++row) {
            const QListWidgetItem* item = list->item(row);
            rows.push_back(item->text().toStdString() + (item->checkState() == Qt::Checked ? " x" : " -") +
                           ((item->flags() & Qt::ItemIsEnabled) ? "" : " disabled"));
        }
        return rows;
    }
    bool WaitForRefresh(std::size_t count)
    {
        return test_support::WaitFor(
            [&]() {
                ros::spinOnce();
                return received.size() >= count;
            },
            std::chrono::seconds(5));
    }

    test_support::TempDir work;
    ros::NodeHandle node;
    std::vector<ros::Publisher> publishers;
    ros::Subscriber refresh;
    std::vector<geometry_msgs::PointStamped> received;
    OffsetSettingsGui gui;
    TopicList* list = nullptr;
    QCheckBox* header = nullptr;
    QPushButton* ok = nullptr;
};

TEST_F(OffsetSettingsDialog, OkWritesTheTicksAndAReopenShowsThem)
{
    EXPECT_EQ(gui.GetConfigFilePath(), FilePath());
    const auto displays = gui.findChildren<OffsetXyDisplay*>();
    ASSERT_EQ(displays.size(), 2);
    EXPECT_EQ(displays[0]->GetText(), "100.000000");
    EXPECT_EQ(displays[1]->GetText(), "200.000000");
    // No file yet: nothing ticked; the image cannot be shifted.
    const Names rows = Rows();
    EXPECT_NE(std::find(rows.begin(), rows.end(), "/lanes[visualization_msgs/MarkerArray] -"), rows.end());
    EXPECT_NE(std::find(rows.begin(), rows.end(), "/image[sensor_msgs/Image] - disabled"), rows.end());
    EXPECT_EQ(list->item(static_cast<int>(std::find(rows.begin(), rows.end(), "/image[sensor_msgs/Image] - disabled") -
                                          rows.begin()))
                  ->toolTip(),
              "Not 3D visualized data, so cannot be offset.");

    header->click();  // ticks every shown topic that can be shifted
    EXPECT_EQ(header->checkState(), Qt::Checked);
    ok->click();
    ASSERT_TRUE(std::filesystem::exists(FilePath()));
    rapidjson::Document document;
    ASSERT_FALSE(Orsa::ConfigFileTool::ReadJsonFile(FilePath(), document));
    Names topics;
    for (const auto& topic : document["topics"].GetArray()) {
        topics.emplace_back(topic.GetString());
    }
    EXPECT_NE(std::find(topics.begin(), topics.end(), "lanes"), topics.end());
    EXPECT_NE(std::find(topics.begin(), topics.end(), "drive/path"), topics.end());
    EXPECT_EQ(std::find(topics.begin(), topics.end(), "image"), topics.end());
    EXPECT_TRUE(document["tf_child_frame_id"].IsArray());
    ASSERT_TRUE(WaitForRefresh(1));
    EXPECT_EQ(received[0].point.x, 0.0);
    EXPECT_EQ(received[0].header.frame_id, "");

    // Reopened: the same ticks, nothing modified.
    const Names ticked = Rows();
    gui.RefreshPage();
    EXPECT_EQ(Rows(), ticked);
    EXPECT_FALSE(list->IsTopicModified());
}

TEST_F(OffsetSettingsDialog, StaleFileTopicsStayAndRefreshDiscardsUnsavedTicks)
{
    std::filesystem::create_directories(work / "config");
    std::ofstream(FilePath()) << R"({"topics": ["/lanes", "gone"], "tf_child_frame_id": ["lidar"]})";
    gui.RefreshPage();
    Names rows = Rows();
    EXPECT_NE(std::find(rows.begin(), rows.end(), "/lanes[visualization_msgs/MarkerArray] x"), rows.end());
    EXPECT_NE(std::find(rows.begin(), rows.end(), "gone[unknown] x"), rows.end());
    EXPECT_EQ(header->checkState(), Qt::PartiallyChecked);
    header->click();
    EXPECT_TRUE(list->IsTopicModified());
    gui.RefreshPage();  // the refresh button's action
    EXPECT_EQ(Rows(), rows);
    EXPECT_FALSE(list->IsTopicModified());
}

TEST_F(OffsetSettingsDialog, ClosingWithUnsavedTicksAsksFirst)
{
    gui.show();
    header->click();
    // Save: the file is written and the platform told.
    QTimer::singleShot(200, []() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "There are unsaved changes.");
        EXPECT_EQ(box->windowTitle(), "Offset Settings");
        box->button(QMessageBox::Save)->click();
    });
    gui.reject();
    EXPECT_TRUE(std::filesystem::exists(FilePath()));
    EXPECT_TRUE(WaitForRefresh(1));
    EXPECT_FALSE(gui.isVisible());

    // Discard: nothing written.
    gui.RefreshPage();
    gui.show();
    header->click();
    const auto written = std::filesystem::last_write_time(FilePath());
    QTimer::singleShot(200, []() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->button(QMessageBox::Discard)->click();
    });
    gui.reject();
    EXPECT_FALSE(gui.isVisible());
    EXPECT_EQ(std::filesystem::last_write_time(FilePath()), written);

    // Unchanged: it closes without asking.
    gui.RefreshPage();
    gui.show();
    gui.reject();
    EXPECT_FALSE(gui.isVisible());
}

TEST_F(OffsetSettingsDialog, EveryStyleSheetIsApplied)
{
    const QString sheet = gui.styleSheet();
    for (const char* rule : {"TypeComboBox", "TopicList", "OffsetGroup", "frameShape", "TfTreeItemCheckBox",
                             "TopicHeader", "GroupTitle"}) {
        EXPECT_TRUE(sheet.contains(rule)) << rule;
    }
    // And they take effect: OK is drawn in the primary colour.
    gui.show();
    QApplication::processEvents();
    const QImage button = ok->grab().toImage();
    EXPECT_EQ(button.pixelColor(4, button.height() / 2), QColor(0x28, 0x78, 0xc5));
}

} // namespace
} // namespace rviz_plugin

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "offset_settings_test", [&]() {
        QApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}

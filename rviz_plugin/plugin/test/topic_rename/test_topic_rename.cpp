// Camera names against a real master: the alias file's rules, and the "Set Name" dialog's checks
// (length in UTF-8 bytes, duplicates) with the file it writes.
#include "../support/ros_test_main.h"
#include "foundation/config_file_tool.h"
#include "topic_rename/rename_data.h"
#include "topic_rename/rename_table_delegate.h"
#include "topic_rename/rename_table_model.h"
#include "topic_rename/topic_rename_dialog.h"
#include "widgets/combo_box_with_verification.h"

#include <custom/Video.h>
#include <ros/master.h>
#include <ros/node_handle.h>
#include <ros/param.h>

#include <QApplication>
#include <QPushButton>
#include <QStyleOptionViewItem>

#include <filesystem>
#include <fstream>

namespace rviz_plugin {
namespace {

class CameraNames : public testing::Test {
protected:
    void SetUp() override
    {
        ros::param::set("orsaPath", work.Path().string() + "/");  // one "/" too many is fine
        std::filesystem::create_directories(work.Path() / "config");
    }
    void TearDown() override { ros::param::del("orsaPath"); }
    void WriteFile(const std::string& content) const { std::ofstream(FilePath()) << content; }
    std::string FilePath() const { return work / "config/camera_topic_alias.json"; }

    test_support::TempDir work;
};

TEST_F(CameraNames, FileNamesTooLongOrRepeatedAreClearedAndLogged)
{
    std::string accented;
    for (int i = 0; i < 15; ++i) {
        accented += "\xC3\xA9";
    }
    WriteFile(R"({"topic_alias": {"/a": "Same", "b": "Same", "c": ")" + std::string(31, 'x') + R"(", "d": 5, "e": ")" +
              accented + R"("}, "default_alias": "not a list"})");
    RenameData data;
    const std::string log = test_support::Console([&]() { data.ReadAliasFromFile(); });
    EXPECT_EQ(RenameData::GetFilePath(), FilePath());
    EXPECT_EQ(data.GetAlias("/a"), "Same");
    EXPECT_EQ(data.GetAlias("b"), "");  // the later one loses its name
    EXPECT_EQ(data.GetAlias("c"), "");
    EXPECT_EQ(data.GetAlias("d"), "");
    EXPECT_EQ(data.GetAlias("/e"), accented);  // 30 bytes are allowed
    EXPECT_EQ(data.GetDefaultAlias().size(), 34);
    EXPECT_EQ(data.GetDefaultAlias().front(), "Front-Left-Short Focus");
    EXPECT_EQ(data.GetDefaultAlias().back(), "Rear-Right-Long Focus");
    EXPECT_NE(log.find("[Error][KoraVision] Duplicate name. The corresponding topic and custom name are b and Same, "
                       "respectively."),
              std::string::npos)
        << log;
    EXPECT_NE(log.find("A custom name cannot exceed 30 characters. The corresponding topic is c"), std::string::npos)
        << log;

    std::string name;
    RenameData::GetCameraTopicWidthAlias(name, "/a");
    EXPECT_EQ(name, "/a_Same");
    name.clear();
    RenameData::GetCameraTopicWidthAlias(name, "/nobody");
    EXPECT_EQ(name, "/nobody");
    const QString elided = RenameData::GetDisplayCameraName(QString(60, 'w'), QApplication::font(), 100);
    EXPECT_LT(elided.size(), 60);
    EXPECT_TRUE(elided.contains(QChar(0x2026)));
}

TEST_F(CameraNames, MissingOrBrokenFilesChangeNothing)
{
    RenameData data;
    data.ReadAliasFromFile();  // no file
    EXPECT_EQ(data.GetAlias("a"), "");
    WriteFile(R"(["topic_alias"])");
    data.ReadAliasFromFile();
    EXPECT_EQ(data.GetDefaultAlias().size(), 34);
    WriteFile("{broken");
    data.ReadAliasFromFile();
    EXPECT_EQ(data.GetAlias("a"), "");
}

TEST_F(CameraNames, DialogChecksEachNameAndSavesThemAll)
{
    WriteFile(R"({"topic_alias": {"cam1": "Front", "parked": "Kept"}})");
    ros::NodeHandle node;
    std::vector<ros::Publisher> cameras;
    for (const char* topic : {"/cam1", "/cam2", "/rig/cam3"}) {
        cameras.push_back(node.advertise<custom::Video>(topic, 1));
    }
    ASSERT_TRUE(test_support::WaitFor(
        []() {
            ros::master::V_TopicInfo topics;
            ros::master::getTopics(topics);
            return std::count_if(topics.begin(), topics.end(),
                                 [](const auto& topic) { return topic.datatype == "custom/Video"; }) >= 3;
        },
        std::chrono::seconds(10)));

    TopicRenameDialog dialog;
    dialog.Initialize();
    dialog.InitDisplayData();
    RenameTableModel* model = dialog.GetModel();
    ASSERT_EQ(model->rowCount(), 3);
    EXPECT_EQ(model->headerData(0, Qt::Horizontal).toString(), "Topics");
    EXPECT_EQ(model->headerData(1, Qt::Horizontal).toString(), "Custom Name");
    EXPECT_EQ(model->index(0, 0).data().toString(), "cam1");
    EXPECT_EQ(model->index(0, 1).data().toString(), "Front");
    EXPECT_EQ(model->index(2, 0).data().toString(), "rig/cam3");
    EXPECT_FALSE(model->flags(model->index(0, 0)) & Qt::ItemIsEditable);
    EXPECT_TRUE(model->flags(model->index(0, 1)) & Qt::ItemIsEditable);
    EXPECT_FALSE(model->setData(model->index(0, 1), "x", Qt::DisplayRole));  // only the edit role stores

    auto* save = dialog.findChild<QPushButton*>("TopicRenameDialog_save");
    ASSERT_NE(save, nullptr);
    RenameTableDelegate* delegate = dialog.GetDelegate();
    const QModelIndex second = model->index(1, 1);
    std::unique_ptr<QWidget> widget(delegate->createEditor(nullptr, QStyleOptionViewItem(), second));
    auto* editor = qobject_cast<ComboBoxWithVerification*>(widget.get());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->count(), 34);  // the default names

    editor->setEditText("Front");
    EXPECT_EQ(editor->GetWarning(), "Duplicate name.");
    EXPECT_FALSE(save->isEnabled());
    editor->setEditText(QString(31, 'x'));
    EXPECT_EQ(editor->GetWarning(), "A custom name cannot exceed 30 characters.");
    EXPECT_FALSE(save->isEnabled());
    editor->setEditText(QString(15, QChar(0xE9)));  // 15 characters, 30 bytes
    EXPECT_EQ(editor->GetWarning(), "");
    EXPECT_TRUE(save->isEnabled());
    editor->setEditText(QString(16, QChar(0xE9)));  // 16 characters, 32 bytes
    EXPECT_EQ(editor->GetWarning(), "A custom name cannot exceed 30 characters.");
    editor->setEditText("Left");
    EXPECT_TRUE(save->isEnabled());
    delegate->setModelData(editor, model, second);
    EXPECT_EQ(model->index(1, 1).data().toString(), "Left");
    ASSERT_TRUE(model->setData(model->index(2, 1), "Roof", Qt::EditRole));

    dialog.SaveAction();
    rapidjson::Document document;
    ASSERT_FALSE(Orsa::ConfigFileTool::ReadJsonFile(FilePath(), document));
    const auto& aliases = document["topic_alias"];
    EXPECT_STREQ(aliases["cam1"].GetString(), "Front");
    EXPECT_STREQ(aliases["cam2"].GetString(), "Left");
    EXPECT_STREQ(aliases["rig/cam3"].GetString(), "Roof");
    EXPECT_STREQ(aliases["parked"].GetString(), "Kept");  // a camera not on the master keeps its name
    EXPECT_EQ(document["default_alias"].Size(), 34U);
}

} // namespace
} // namespace rviz_plugin

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "topic_rename_test", [&]() {
        QApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}

// The remote commands panel inside a real rviz frame (ROS master, virtual display) against an OpenSSH
// server started by the test: the login form, the version check, a command and its output window; and
// the password in clear is nowhere in the files the run wrote, its saved configuration or its log.
#include "../support/processes.h"
#include "../support/qt_events.h"
#include "../support/ros_test_main.h"
#include "../support/rviz_frame_main.h"
#include "../support/ssh_server.h"
#include "remote_commands_panel/command_list_widget.h"
#include "remote_commands_panel/kora_remote_commands_panel.h"
#include "remote_commands_panel/login_status_widget.h"
#include "remote_commands_panel/output_widget.h"

#include <ros/param.h>
#include <rviz/config.h>
#include <rviz/panel_dock_widget.h>
#include <rviz/visualization_frame.h>
#include <rviz/visualization_manager.h>
#include <rviz/yaml_config_writer.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>

#include <filesystem>
#include <fstream>

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

rviz::VisualizationFrame* frame = nullptr;
test_support::VirtualDisplay* display = nullptr;

// Every regular file below root whose bytes contain text.
std::vector<std::string> FilesContaining(const fs::path& root, const std::string& text)
{
    std::vector<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(root, fs::directory_options::skip_permission_denied)) {
        if (entry.is_regular_file() && test_support::ReadFile(entry.path().string()).find(text) != std::string::npos) {
            found.push_back(entry.path().string());
        }
    }
    return found;
}

TEST(RemoteCommandsPanel, LoginVersionCommandOutputAndNoPasswordLeft)
{
    test_support::TempDir work;
    test_support::SshServer server(work.Path().string());
    if (!server.Available()) {
        GTEST_SKIP() << server.SkipReason();
    }
    if (fs::exists("/etc/version.json")) {
        GTEST_SKIP() << "/etc/version.json exists here; the test does not overwrite it";
    }
    const fs::path root = work.Path() / "orsa";
    fs::create_directories(root);
    ros::param::set("orsaPath", root.string());
    std::ofstream(root / "version.json") << R"({"InterfaceList": [{"InterfaceName": "viz", "InterfaceVersions": "2.1"}]})";
    std::ofstream("/etc/version.json") << R"({"InterfaceList": [{"InterfaceName": "viz", "InterfaceVersions": "2.4"}]})";
    struct RemoveCarFile {
        ~RemoveCarFile() { fs::remove("/etc/version.json"); }
    } removeCarFile;

    std::string log;
    testing::internal::CaptureStdout();
    auto* panel = new rviz_plugin::KoraRemoteCommandsPanel();
    rviz::PanelDockWidget* dock =
        frame->getManager()->getWindowManager()->addPane("KORA Remote Commands", panel, Qt::RightDockWidgetArea);
    dock->setMinimumWidth(620);
    panel->initialize(frame->getManager());

    // Nothing entered: a message, and no connection opened.
    auto* login = panel->findChild<QPushButton*>("LoginWidget_login");
    ASSERT_NE(login, nullptr);
    login->click();
    EXPECT_EQ(panel->findChild<QLabel*>("LoginWidget_error")->text(), "Please enter the login information.");

    panel->findChild<QComboBox*>("LoginWidget_ip")->setEditText("127.0.0.1");
    panel->findChild<QLineEdit*>("LoginWidget_port")->setText(QString::number(server.Port()));
    panel->findChild<QComboBox*>("LoginWidget_user")->setEditText(QString::fromStdString(server.User()));
    auto* password = panel->findChild<QLineEdit*>("LoginWidget_password");
    password->setText("not-the-password");
    login->click();
    ASSERT_TRUE(test_support::ServeEvents([&]() { return login->isEnabled(); }));
    EXPECT_EQ(panel->findChild<QLabel*>("LoginWidget_error")->text(),
              "Authorization failed. Invalid username or password.");

    password->setText(QString::fromStdString(server.Password()));
    login->click();
    auto* pages = panel->findChild<QStackedWidget*>();
    ASSERT_TRUE(test_support::ServeEvents([&]() { return pages->currentIndex() == 1; })) << panel->findChild<QLabel*>("LoginWidget_error")->text().toStdString();
    EXPECT_TRUE(password->text().isEmpty());
    auto* version = panel->findChild<QLabel*>("LoginStatusWidget_version");
    ASSERT_TRUE(test_support::ServeEvents([&]() { return version->text().contains("Compatible"); })) << version->text().toStdString();
    EXPECT_EQ(version->text(), "API version: Compatible (car 2.4, local 2.1)");

    // The car has no list of its own here: the compiled-in commands, then the user's.
    rviz_plugin::CommandManager& commands = panel->GetCommandManager();
    ASSERT_TRUE(test_support::ServeEvents([&]() { return commands.GetCommands().size() == 4 && !commands.IsLoading(); }, 60s));
    ASSERT_TRUE(commands.AddCommand("system", "uname -sr; echo $((6*7)) lines", false));
    auto* list = panel->findChild<rviz_plugin::CommandListWidget*>();
    ASSERT_TRUE(test_support::ServeEvents([&]() { return list->GetCommandWidgets().size() == 5; }));
    rviz_plugin::CommandWidget* system = list->GetCommandWidgets().back();
    system->findChild<QPushButton*>("CommandWidget_launch")->click();
    ASSERT_TRUE(test_support::ServeEvents([&]() { return system->GetOutputWidget()->toPlainText().contains("The command execution is finished: 0"); }));
    EXPECT_TRUE(system->GetOutputWidget()->toPlainText().contains("42 lines"));
    EXPECT_FALSE(system->GetOutputWidget()->toPlainText().contains("\x1b"));
    EXPECT_EQ(system->findChild<QPushButton*>("CommandWidget_view")->text(), "Output *");  // unread
    system->ShowOutput();
    EXPECT_EQ(system->findChild<QPushButton*>("CommandWidget_view")->text(), "Output");
    test_support::ServeEvents([]() { return false; }, 1500ms);  // let the windows settle for the picture
    ASSERT_TRUE(display->Screenshot(std::string(RVIZ_PLUGIN_ARTIFACT_DIR) + "/remote_commands_panel.png"));

    // The configuration keeps the login with the password as cipher text only.
    rviz::Config config;
    panel->save(config);
    rviz::YamlConfigWriter writer;
    writer.writeFile(config, QString::fromStdString((root / "panel.rviz").string()));
    const std::string saved = test_support::ReadFile((root / "panel.rviz").string());
    EXPECT_NE(saved.find("Current Connection"), std::string::npos) << saved;
    EXPECT_NE(saved.find("system"), std::string::npos);
    log = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(FilesContaining(work.Path(), server.Password()).empty());
    EXPECT_TRUE(FilesContaining(root, server.Password()).empty());
    EXPECT_EQ(log.find(server.Password()), std::string::npos);
    EXPECT_EQ(saved.find(server.Password()), std::string::npos);
    delete panel;
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRvizFrame(
        argc, argv, "remote_commands_panel_test",
        [](rviz::VisualizationFrame& visualizationFrame, test_support::VirtualDisplay& virtualDisplay) {
            visualizationFrame.setGeometry(0, 0, 1600, 1000);
            frame = &visualizationFrame;
            display = &virtualDisplay;
            const int result = RUN_ALL_TESTS();
            frame = nullptr;
            return result;
        });
}

// Commands on a real OpenSSH server started by the test: user lines, the validity check, the car's
// built-in list read from a file the test writes (good, malformed, empty, over 1 MiB), limits, the
// configuration, interruption, twenty at once, and the version check.
#include "../support/qt_events.h"
#include "../support/ros_test_main.h"
#include "remote_test_support.h"
#include "remote_commands/command_manager.h"
#include "remote_commands/connection_manager.h"
#include "remote_commands/modify_viz_address_command.h"
#include "remote_commands/version_compatibility_checker.h"

#include <ros/param.h>
#include <rviz/config.h>

#include <QCoreApplication>
#include <QSignalSpy>

#include <filesystem>
#include <fstream>

namespace rviz_plugin {
namespace {

using namespace std::chrono_literals;


class Commands : public test_support::SshServerTest {
protected:
    void SetUp() override
    {
        SshServerTest::SetUp();
        if (IsSkipped()) {
            return;
        }
        connections.Init(nullptr);
        connections.Add(Login(server->Password()));
        builtinFile = server->Home() + "/viz_builtin_commands.json";
        manager.Init(&connections, nullptr, QString::fromStdString(builtinFile));
    }
    void WriteBuiltinFile(const std::string& content) const
    {
        std::ofstream(builtinFile) << content;
        std::filesystem::permissions(builtinFile, std::filesystem::perms::owner_read | std::filesystem::perms::group_read |
                                                      std::filesystem::perms::others_read);
    }
    // Runs a command to its end and returns its output.
    static QString Run(Command& command)
    {
        QString output;
        QObject::connect(&command, &Command::ReceivedOutput, [&output](const QString& text) { output += text; });
        command.Execute();
        EXPECT_TRUE(test_support::ServeEvents([&]() { return output.contains("The command execution is finished: "); })) << output.toStdString();
        EXPECT_TRUE(test_support::ServeEvents([&]() { return command.GetExecutionStatus() == Command::Standby; }));
        return output;
    }
    bool LoadBuiltins()
    {
        QSignalSpy added(&manager, &CommandManager::BuiltinCommandAdded);
        QSignalSpy failed(&manager, &CommandManager::ReadBuiltinCommandsConfigFailed);
        manager.AddBuiltinCommands();
        EXPECT_TRUE(manager.IsLoading());
        const bool done =
            test_support::ServeEvents([&]() { return (added.count() > 0 || failed.count() > 0) && !manager.IsLoading(); });
        EXPECT_TRUE(done) << added.count() << " " << failed.count() << " " << manager.IsLoading();
        return done;
    }
    QStringList Names() const
    {
        QStringList names;
        for (Command* command : manager.GetCommands()) {
            names << command->GetName();
        }
        return names;
    }

    ConnectionManager connections;
    CommandManager manager;
    std::string builtinFile;
};

const char* const goodFile = R"({"viz_builtin_commands": [
  {"name": "list home", "type": "app", "command_template": "ls {}", "default_arg": "-a",
   "actions_flag": "HAS_EXECUTE | HAS_VIEW | HAS_EDIT", "description": "Lists the home."},
  {"name": "tell address", "type": "shell", "command_template": "echo {}", "default_arg": "$GET_ORSA_SERVER_IP_PORT",
   "actions_flag": "HAS_EXECUTE | HAS_VIEW", "description": "Says where the visualiser listens."},
  {"name": "missing tool", "type": "app", "command_template": "/no/such/tool {}", "default_arg": "",
   "actions_flag": "HAS_EXECUTE", "description": "Not on this car."}]})";

TEST_F(Commands, UserLinesRunInTheirShellAndEndWithTheShell)
{
    ASSERT_TRUE(manager.AddCommand("greet", "echo hi-$((40+2))", false));
    Command* greet = manager.GetCommand("greet");
    std::vector<Command::ExecutionStatus> statuses;
    QObject::connect(greet, &Command::ExecutionStatusChanged,
                     [&statuses](Command::ExecutionStatus status) { statuses.push_back(status); });
    const QString output = Run(*greet);
    EXPECT_TRUE(output.contains("hi-42")) << output.toStdString();
    EXPECT_TRUE(output.contains("echo hi-$((40+2));exit")) << output.toStdString();  // the typed line
    EXPECT_TRUE(output.endsWith("\nThe command execution is finished: 0\n\n")) << output.toStdString();
    EXPECT_EQ(statuses, (std::vector<Command::ExecutionStatus>{Command::Running, Command::Standby}));

    // A line that ends in ";exit" with pieces of like length gets no second one.
    ASSERT_TRUE(manager.AddCommand("done", "true;exit", false));
    const QString done = Run(*manager.GetCommand("done"));
    EXPECT_FALSE(done.contains(";exit;exit")) << done.toStdString();
    EXPECT_EQ(Command::GetLastCommand("abcd;exit", ";"), "exit");
    EXPECT_EQ(Command::GetLastCommand("ls;exit", ";"), "it");  // the formula, literally
    EXPECT_EQ(Command::GetLastCommand("ls", ";"), "ls");
    EXPECT_EQ(Command::GetCommandExecutable("ls -l;exit", " "), "ls");
    EXPECT_EQ(Command::GetCommandExecutable("ls", " "), "ls");

    // Terminate on a standby command calls back at once; a running one is interrupted.
    bool calledBack = false;
    greet->Terminate([&calledBack]() { calledBack = true; });
    EXPECT_TRUE(calledBack);
    ASSERT_TRUE(manager.AddCommand("wait", "echo waiting; sleep 30", false));
    Command* wait = manager.GetCommand("wait");
    QString waiting;
    QObject::connect(wait, &Command::ReceivedOutput, [&waiting](const QString& text) { waiting += text; });
    wait->Execute();
    ASSERT_TRUE(test_support::ServeEvents([&]() { return waiting.contains("waiting\r\n"); }));
    bool terminated = false;
    const auto start = std::chrono::steady_clock::now();
    wait->Terminate([&terminated]() { terminated = true; });
    EXPECT_EQ(wait->GetExecutionStatus(), Command::Terminating);
    ASSERT_TRUE(test_support::ServeEvents([&]() { return terminated && wait->GetExecutionStatus() == Command::Standby; }, 15s));
    EXPECT_LT(std::chrono::steady_clock::now() - start, 8s);
}

TEST_F(Commands, TwentyCommandsLaunchedAtOnce)
{
    for (int index = 0; index < CommandManager::GetMaxCommandSize(); ++index) {
        ASSERT_TRUE(manager.AddCommand(QString("c%1").arg(index), QString("echo out-%1").arg(index), false));
    }
    EXPECT_FALSE(manager.AddCommand("one too many", "ls", false));
    std::map<Command*, QString> outputs;
    for (Command* command : manager.GetCommands()) {
        QObject::connect(command, &Command::ReceivedOutput,
                         [&outputs, command](const QString& text) { outputs[command] += text; });
        command->Execute();
    }
    ASSERT_TRUE(test_support::ServeEvents(
        [&]() {
            const auto commands = manager.GetCommands();
            return std::all_of(commands.begin(), commands.end(), [&](Command* command) {
                return command->GetExecutionStatus() == Command::Standby &&
                       outputs[command].contains("The command execution is finished: ");
            });
        },
        90s));
    for (Command* command : manager.GetCommands()) {
        EXPECT_TRUE(outputs[command].contains("finished: 0\n")) << outputs[command].toStdString();
        EXPECT_TRUE(outputs[command].contains("out-" + command->GetName().mid(1) + "\r\n"));
    }
}

TEST_F(Commands, BuiltinListFromTheCarWithChecksAndTheUsersArguments)
{
    WriteBuiltinFile(goodFile);
    ASSERT_TRUE(manager.AddCommand("mine", "ls", false));
    QSignalSpy failures(&manager, &CommandManager::ReadBuiltinCommandsConfigFailed);
    // The checks start as soon as the list is added: listen from then on.
    std::mutex validMutex;
    std::map<QString, bool> valid;
    QObject::connect(&manager, &CommandManager::BuiltinCommandAdded, [&]() {
        for (Command* command : manager.GetCommands()) {
            QObject::connect(command, &Command::CommandValidityChecked, [&, name = command->GetName()](bool result) {
                std::lock_guard<std::mutex> lock(validMutex);
                valid[name] = result;
            });
        }
    });
    ASSERT_TRUE(LoadBuiltins());
    EXPECT_EQ(failures.count(), 0) << (failures.isEmpty() ? "" : failures.at(0).at(0).toString().toStdString());
    EXPECT_EQ(Names(), (QStringList{"list home", "tell address", "missing tool", "mine"}));
    Command* list = manager.GetCommand("list home");
    EXPECT_TRUE(list->IsBuiltinCommand());
    EXPECT_EQ(list->GetButtonFlag(), Command::HasExecute | Command::HasView | Command::HasEdit);
    EXPECT_EQ(list->GetFullCommand(), "ls -a");
    QString ip;
    QString port;
    ModifyVizAddressCommand::GetOrsaListenIpAndPort(ip, port);
    EXPECT_EQ(manager.GetCommand("tell address")->GetEditableCommand(), ip + " " + port);
    EXPECT_EQ(port, "7000");
    // "app" commands are checked on the car; "shell" ones never.
    ASSERT_TRUE(test_support::ServeEvents([&]() {
        std::lock_guard<std::mutex> lock(validMutex);
        return valid.size() == 2 && !manager.IsLoading();
    }));
    {
        std::lock_guard<std::mutex> lock(validMutex);
        EXPECT_TRUE(valid["list home"]);
        EXPECT_FALSE(valid["missing tool"]);
    }
    EXPECT_FALSE(manager.GetCommand("tell address")->ShouldVerifyValidity());

    // The user's arguments of a built-in command survive the next login's list.
    list->SetEditableCommand("-la");
    ASSERT_TRUE(LoadBuiltins());
    EXPECT_EQ(manager.GetCommand("list home")->GetEditableCommand(), "-la");
    test_support::ServeEvents([&]() { return !manager.IsLoading(); });

    // Saved and loaded with the three keys.
    rviz::Config config;
    manager.Save(config);
    CommandManager loaded;
    loaded.Init(&connections, nullptr, QString::fromStdString(builtinFile));
    // An entry with an empty command is skipped with its warning (the built-in one comes back at login).
    const std::string log = test_support::Console([&]() { loaded.Load(config); });
    EXPECT_NE(log.find("Skipped the saved command 'missing tool': No content."), std::string::npos) << log;
    ASSERT_EQ(loaded.GetCommands().size(), manager.GetCommands().size() - 1);
    EXPECT_EQ(loaded.GetCommand("mine")->GetEditableCommand(), "ls");
    EXPECT_TRUE(loaded.GetCommand("list home")->IsBuiltinCommand());
}

TEST_F(Commands, BadBuiltinFilesGiveTheirMessages)
{
    QSignalSpy failed(&manager, &CommandManager::ReadBuiltinCommandsConfigFailed);
    // A type other than "app" or "shell": the schema fails and no built-in commands are shown.
    std::string wrongType = goodFile;
    wrongType.replace(wrongType.find("\"shell\""), 7, "\"other\"");
    WriteBuiltinFile(wrongType);
    ASSERT_TRUE(LoadBuiltins());
    ASSERT_EQ(failed.count(), 1);
    EXPECT_EQ(failed.takeFirst().at(0).toString(),
              "The viz_builtin_commands.json file format is incorrect. The built-in commands cannot be displayed.");
    EXPECT_TRUE(Names().isEmpty());

    // Nothing readable: the compiled-in list.
    WriteBuiltinFile("");
    ASSERT_TRUE(LoadBuiltins());
    ASSERT_EQ(failed.count(), 1);
    EXPECT_EQ(failed.takeFirst().at(0).toString(),
              "No valid builtin command info is read from the SSH server. The default builtin commands will be "
              "displayed. For details, see the log.");
    EXPECT_EQ(Names(), (QStringList{"launch camera_orsa", "launch lidar_orsa", "launch radar_orsa",
                                    "setting viz_address.conf"}));
    EXPECT_EQ(manager.GetCommand("launch camera_orsa")->GetFullCommand(),
              "/opt/platform/kora_platform/script/camera_orsa_start.sh 71 72 73 74 75 76 77 78 79 80 81 82 83 84");
    test_support::ServeEvents([&]() { return !manager.IsLoading(); });

    // Over 1 MiB: refused, and the compiled-in list.
    WriteBuiltinFile("{\"viz_builtin_commands\": [], \"padding\": \"" + std::string(0x100000, 'x') + "\"}");
    ASSERT_TRUE(LoadBuiltins());
    ASSERT_GE(failed.count(), 1);
    EXPECT_EQ(failed.takeFirst().at(0).toString(),
              "An abnormal length data is received (over 1MB). Check whether the content in the file is correct.");
    EXPECT_EQ(Names().size(), 4);
    test_support::ServeEvents([&]() { return !manager.IsLoading(); });
}

TEST(CommandLimits, ContentChecks)
{
    EXPECT_EQ(CommandManager::VerifyContent("", 25, false), "No content.");
    EXPECT_EQ(CommandManager::VerifyContent(QString(26, 'n'), 25, false),
              "The current number of characters is 26, which exceeds 25.");
    EXPECT_EQ(CommandManager::VerifyContent(QString(4001, 'c'), 4000, true),
              "The current number of characters is 4001, which exceeds 4000.");
    EXPECT_EQ(CommandManager::VerifyContent(QString::fromUtf8("ls \xC3\xA9"), 4000, true), QString::fromUtf8("Invalid character: \xC3\xA9."));
    EXPECT_EQ(CommandManager::VerifyContent(QString::fromUtf8("\xC3\xA9\xC3\xA8\xC3\xAA\xC3\xAB\xC3\xA0\xC3\xA2\xC3\xAE"), 4000, true),
              QString::fromUtf8("Invalid character: \xC3\xA9, \xC3\xA8, \xC3\xAA, \xC3\xAB, \xC3\xA0, \xC3\xA2..."));
    EXPECT_EQ(CommandManager::VerifyContent(QString::fromUtf8("caf\xC3\xA9"), 25, false), "");  // names: no scan
}

TEST(VersionCheck, MajorAndMinorRules)
{
    const auto one = [](const std::string& name, int major, int minor) {
        return std::vector<InternalInterface>{{name, {major, minor}}};
    };
    EXPECT_EQ(MatchInterfaces(one("api", 1, 2), one("api", 1, 3)), Compatibility::Compatible);
    EXPECT_EQ(MatchInterfaces(one("api", 1, 4), one("api", 1, 3)), Compatibility::PartiallyCompatible);
    EXPECT_EQ(MatchInterfaces(one("api", 2, 0), one("api", 1, 0)), Compatibility::Incompatible);
    EXPECT_EQ(MatchInterfaces(one("api", 1, 0), one("other", 1, 0)), Compatibility::Incompatible);
    std::vector<InternalInterface> two = one("a", 1, 0);
    two.push_back({"b", {3, 5}});
    std::vector<InternalInterface> remote = one("a", 1, 1);
    remote.push_back({"b", {3, 4}});
    EXPECT_EQ(MatchInterfaces(two, remote), Compatibility::PartiallyCompatible);  // the worst of the two
    EXPECT_TRUE(VersionFile::IsVersionFormat("10.2"));
    for (const char* bad : {"1", "1.2.3", "1.", ".2", "a.b", "1.2 "}) {
        EXPECT_FALSE(VersionFile::IsVersionFormat(bad)) << bad;
    }
}

TEST_F(Commands, VersionOfTheCarAgainstTheLocalFile)
{
    std::ofstream(work->Path() / "version.json")
        << R"({"InterfaceList": [{"InterfaceName": "viz", "InterfaceVersions": "1.2"}]})";
    const std::string remote = server->Home() + "/version.json";
    std::ofstream(remote) << R"({"InterfaceList": [{"InterfaceName": "viz", "InterfaceVersions": "1.3"},
                                                 {"InterfaceName": "other", "InterfaceVersions": "7.0.1"}]})";
    std::filesystem::permissions(remote, std::filesystem::perms::others_read, std::filesystem::perm_options::add);
    VersionCompatibilityChecker checker;
    checker.Init(&connections, QString::fromStdString(remote));
    QSignalSpy finished(&checker, &VersionCompatibilityChecker::CheckFinished);
    checker.Check();
    EXPECT_TRUE(checker.IsChecking());
    ASSERT_TRUE(test_support::ServeEvents([&]() { return finished.count() == 1; }));
    EXPECT_EQ(finished.at(0).at(0).toString(), "1.3");
    EXPECT_EQ(finished.at(0).at(1).toString(), "Compatible");
    EXPECT_EQ(finished.at(0).at(2).toString(), "1.2");
    EXPECT_FALSE(checker.IsChecking());

    // Without a login: "Unknown".
    ConnectionManager none;
    none.Init(nullptr);
    VersionCompatibilityChecker unconnected;
    unconnected.Init(&none, QString::fromStdString(remote));
    QSignalSpy unknown(&unconnected, &VersionCompatibilityChecker::CheckFinished);
    unconnected.Check();
    ASSERT_TRUE(test_support::ServeEvents([&]() { return unknown.count() == 1; }));
    EXPECT_EQ(unknown.at(0).at(1).toString(), "Unknown");
}

} // namespace
} // namespace rviz_plugin

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "commands_test", [&]() {
        QCoreApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}

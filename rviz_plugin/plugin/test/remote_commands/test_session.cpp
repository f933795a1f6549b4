// Sessions against a real OpenSSH server on 127.0.0.1 started by the test: login, commands in a pty
// shell, exit codes, wrong passwords, bad addresses, interruption, a server that dies mid-output, many
// sessions at once, and an address that never answers (inside a network namespace of the test's own).
#include "../support/ros_test_main.h"
#include "../support/ssh_server.h"
#include "remote_test_support.h"

#include <ros/param.h>

#include <sched.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <iostream>

namespace rviz_plugin {
namespace {

using namespace std::chrono_literals;

class SessionTest : public test_support::SshServerTest {
protected:
    static void SetUpTestSuite()
    {
        SshServerTest::SetUpTestSuite();
        Connection::cipherHandler.Initialize();  // its keys live under orsaPath
    }
    static std::string Run(Session& session, const std::string& command)
    {
        test_support::OutputCollector output;
        session.Exec(command, output.Callback());
        EXPECT_TRUE(output.WaitFinished(20s)) << output.Text();
        return output.Text();
    }
};

TEST_F(SessionTest, ACommandRunsInTheShellAndEndsWithItsExitCode)
{
    auto session = SessionFactory::CreateSession();
    ASSERT_EQ(test_support::ConnectAndWait(*session, Login(server->Password())), Session::Connected)
        << session->GetErrorDescription();
    // Connecting a connected session reports at once.
    EXPECT_EQ(test_support::ConnectAndWait(*session, Login(server->Password())), Session::Connected);
    const std::string output = Run(*session, "echo hello-$((6*7));exit");
    EXPECT_NE(output.find("hello-42"), std::string::npos) << output;
    EXPECT_NE(output.find("\nThe command execution is finished: 0\n\n"), std::string::npos) << output;
    EXPECT_EQ(session->GetLastExitCode(), 0);
    EXPECT_EQ(session->GetStatus(), Session::NotConnected);  // the shell's end closes the session

    ASSERT_EQ(test_support::ConnectAndWait(*session, Login(server->Password())), Session::Connected);
    EXPECT_NE(Run(*session, "exit 3").find("\nThe command execution is finished: 3\n\n"), std::string::npos);
    EXPECT_EQ(session->GetLastExitCode(), 3);
}

TEST_F(SessionTest, BadLoginsGiveTheirCodes)
{
    auto session = SessionFactory::CreateSession();
    EXPECT_EQ(test_support::ConnectAndWait(*session, Login("wrong")), Session::NotConnected);
    EXPECT_EQ(session->GetErrorCode(), Session::AuthorizationFailed);
    EXPECT_EQ(session->GetErrorDescription(), "Authorization failed. Invalid username or password.");

    Connection connection = Login(server->Password());
    connection.SetPort("ssh");
    EXPECT_EQ(test_support::ConnectAndWait(*session, connection), Session::NotConnected);
    EXPECT_EQ(session->GetErrorDescription(), "Incorrect port.");
    for (const char* ip : {"127.0.0.256", "::1", "localhost"}) {
        connection = Login(server->Password());
        connection.SetIp(ip);
        EXPECT_EQ(test_support::ConnectAndWait(*session, connection), Session::NotConnected);
        EXPECT_EQ(session->GetErrorDescription(), "Incorrect IP.") << ip;
    }
    connection = Login(server->Password());
    connection.SetPort(std::to_string(test_support::FreePort()));  // nothing listens
    EXPECT_EQ(test_support::ConnectAndWait(*session, connection), Session::NotConnected);
    EXPECT_EQ(session->GetErrorDescription(), "Failed to connect to the SSH server. For error information, see the log.");
    // A damaged or oversized stored cipher text fails as a decryption, before anything is sent.
    connection = Login(server->Password());
    connection.SetCipherPassword(std::vector<unsigned char>(6000, 0x41));
    EXPECT_EQ(test_support::ConnectAndWait(*session, connection), Session::NotConnected);
    EXPECT_EQ(session->GetErrorCode(), Session::DecryptFailed);
    connection.SetCipherPassword({1, 2, 3});
    EXPECT_EQ(test_support::ConnectAndWait(*session, connection), Session::NotConnected);
    EXPECT_EQ(session->GetErrorCode(), Session::DecryptFailed);
}

TEST_F(SessionTest, EmptyCommandsAndUnconnectedSessionsEndAtOnce)
{
    auto session = SessionFactory::CreateSession();
    EXPECT_EQ(Run(*session, "ls"), "\nThe command execution is finished: Not connected.\n\n");
    ASSERT_EQ(test_support::ConnectAndWait(*session, Login(server->Password())), Session::Connected);
    EXPECT_EQ(Run(*session, ""), "\nThe command execution is finished: Refer to the error information in the log.\n\n");
}

TEST_F(SessionTest, TerminateInterruptsAndGivesUpOnAShellThatIgnoresIt)
{
    auto session = SessionFactory::CreateSession();
    ASSERT_EQ(test_support::ConnectAndWait(*session, Login(server->Password())), Session::Connected);
    test_support::OutputCollector output;
    // The terminal echoes the typed line: the quotes keep the marker out of the echo, so it shows
    // only once the shell runs the command.
    session->Exec("echo sta''rted; sleep 30; exit", output.Callback());
    ASSERT_TRUE(output.WaitFor("started", 10s));
    std::promise<void> terminated;
    const auto start = std::chrono::steady_clock::now();
    session->Terminate([&terminated]() { terminated.set_value(); });
    ASSERT_EQ(terminated.get_future().wait_for(10s), std::future_status::ready);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 6s);
    EXPECT_FALSE(session->IsReading());
    session->Disconnect();

    // A shell that ignores Ctrl+C: the session stops reading after about 4 s.
    ASSERT_EQ(test_support::ConnectAndWait(*session, Login(server->Password())), Session::Connected);
    test_support::OutputCollector stubborn;
    session->Exec("trap '' INT; echo stub''born; sleep 30; exit", stubborn.Callback());
    ASSERT_TRUE(stubborn.WaitFor("stubborn", 10s));
    std::promise<void> gaveUp;
    const auto second = std::chrono::steady_clock::now();
    session->Terminate([&gaveUp]() { gaveUp.set_value(); });
    ASSERT_EQ(gaveUp.get_future().wait_for(15s), std::future_status::ready);
    const auto waited = std::chrono::steady_clock::now() - second;
    EXPECT_GE(waited, 3s);
    EXPECT_LT(waited, 8s);
    EXPECT_FALSE(session->IsReading());
    session->Disconnect();
    EXPECT_EQ(session->GetStatus(), Session::NotConnected);
}

TEST_F(SessionTest, TwentySessionsAtOnce)
{
    std::vector<std::unique_ptr<Session>> sessions;
    std::vector<std::unique_ptr<test_support::OutputCollector>> outputs;
    const Connection connection = Login(server->Password());
    for (int index = 0; index < 20; ++index) {
        sessions.push_back(SessionFactory::CreateSession());
        outputs.push_back(std::make_unique<test_support::OutputCollector>());
    }
    std::vector<std::future<Session::Status>> connected;
    for (auto& session : sessions) {
        connected.push_back(std::async(std::launch::async, [&session, &connection]() {
            return test_support::ConnectAndWait(*session, connection, 60s);
        }));
    }
    for (std::size_t index = 0; index < sessions.size(); ++index) {
        ASSERT_EQ(connected[index].get(), Session::Connected) << index << " " << sessions[index]->GetErrorDescription();
        sessions[index]->Exec("echo run-" + std::to_string(index) + ";exit", outputs[index]->Callback());
    }
    for (std::size_t index = 0; index < sessions.size(); ++index) {
        ASSERT_TRUE(outputs[index]->WaitFinished(60s)) << index;
        EXPECT_NE(outputs[index]->Text().find("run-" + std::to_string(index)), std::string::npos);
        EXPECT_NE(outputs[index]->Text().find("finished: 0\n"), std::string::npos) << outputs[index]->Text();
    }
}

TEST_F(SessionTest, LargeOutputArrivesWhole)
{
    const std::string file = server->Home() + "/large.txt";
    std::ofstream(file) << std::string(2 * 1024 * 1024, 'x') << "\nend-of-file\n";
    std::filesystem::permissions(file, std::filesystem::perms::others_read, std::filesystem::perm_options::add);
    auto session = SessionFactory::CreateSession();
    ASSERT_EQ(test_support::ConnectAndWait(*session, Login(server->Password())), Session::Connected);
    test_support::OutputCollector output;
    const auto start = std::chrono::steady_clock::now();
    session->Exec("cat " + file + ";exit", output.Callback());
    ASSERT_TRUE(output.WaitFinished(60s));
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const std::string text = output.Text();
    EXPECT_NE(text.find("end-of-file"), std::string::npos);
    EXPECT_GE(std::count(text.begin(), text.end(), 'x'), 2 * 1024 * 1024);
    EXPECT_LT(seconds, 20.0);
    std::cout << "2 MiB through the shell in " << seconds << " s" << std::endl;
}

// Last: the server is killed in the middle of a command's output.
TEST_F(SessionTest, ZZServerKilledMidOutputEndsWithAReason)
{
    auto session = SessionFactory::CreateSession();
    ASSERT_EQ(test_support::ConnectAndWait(*session, Login(server->Password())), Session::Connected);
    test_support::OutputCollector output;
    session->Exec("while true; do echo tick; sleep 0.1; done", output.Callback());
    ASSERT_TRUE(output.WaitFor("tick\r\ntick", 10s)) << output.Text();
    server->Kill();
    ASSERT_TRUE(output.WaitFinished(20s)) << output.Text();
    const std::string text = output.Text();
    const std::string last = text.substr(text.rfind("\nThe command execution is finished: "));
    EXPECT_EQ(last.find("finished: 0\n"), std::string::npos) << last;  // a reason, not an exit code
    EXPECT_EQ(session->GetStatus(), Session::NotConnected);
}

// An address that never answers: in a network namespace of its own, a link whose far end has no address, so
// nothing ever answers (and nothing leaves the machine).
TEST(SessionNetwork, UnreachableHostFailsWithinSeconds)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "a network namespace needs root; not root here";
    }
    auto result = std::async(std::launch::async, []() -> std::pair<int, double> {
        if (unshare(CLONE_NEWNET) != 0) {
            return {-1, 0};
        }
        for (const std::vector<std::string>& command :
             {std::vector<std::string>{"ip", "link", "set", "lo", "up"},
              std::vector<std::string>{"ip", "link", "add", "v0", "type", "veth", "peer", "name", "v1"},
              std::vector<std::string>{"ip", "addr", "add", "10.77.0.1/24", "dev", "v0"},
              std::vector<std::string>{"ip", "link", "set", "v0", "up"},
              std::vector<std::string>{"ip", "link", "set", "v1", "up"}}) {
            if (test_support::RunCommand(command) != 0) {
                return {-2, 0};
            }
        }
        auto session = SessionFactory::CreateSession();
        Connection connection;
        connection.SetIp("10.77.0.2");
        connection.SetPort("22");
        connection.SetUserName("nobody");
        const auto start = std::chrono::steady_clock::now();
        const Session::Status status = test_support::ConnectAndWait(*session, connection, 60s);
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return {status == Session::NotConnected ? session->GetErrorCode() : -3, seconds};
    });
    const auto [code, seconds] = result.get();
    if (code == -1 || code == -2) {
        GTEST_SKIP() << "no network namespace here";
    }
    EXPECT_EQ(code, Session::ConnectFailed);
    EXPECT_LT(seconds, 15.0);  // two SYN retries, not the system's minutes
}

} // namespace
} // namespace rviz_plugin

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "session_test", [] { return RUN_ALL_TESTS(); });
}

// SSH sessions against the OpenSSH client, both on one OpenSSH server on 127.0.0.1 started here (needs
// root for the server's test account):
//   connect: handshake, password login and an interactive shell (Session) against `ssh` logging in and
//            running `true` (the client's process start included); the PBKDF2 root key derivation
//            that each login's decryption costs is given apart;
//   cat:     10 MB through the session's pty shell against `ssh host cat` into /dev/null.
//
//   remote_session_bench [--rounds N]
#include "../test/remote_commands/remote_test_support.h"
#include "../test/support/ros_test_main.h"
#include "../test/support/ssh_server.h"
#include "remote_commands/key_handler.h"

#include <ros/param.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

using Clock = std::chrono::steady_clock;

namespace {

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double Milliseconds(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

int Run(int rounds)
{
    test_support::TempDir work;
    ros::param::set("orsaPath", work.Path().string());
    rviz_plugin::Connection::cipherHandler.Initialize();
    test_support::SshServer server(work.Path().string());
    if (!server.Available()) {
        std::cerr << "no SSH server: " << server.SkipReason() << "\n";
        return 1;
    }
    rviz_plugin::Connection login;
    login.SetIp("127.0.0.1");
    login.SetPort(std::to_string(server.Port()));
    login.SetUserName(server.User());
    login.SetPassword(server.Password());
    const std::string askpass = work / "askpass.sh";
    std::ofstream(askpass) << "#!/bin/sh\necho '" << server.Password() << "'\n";
    std::filesystem::permissions(askpass, std::filesystem::perms::owner_all);
    const test_support::Environment askpassEnvironment{
        {"SSH_ASKPASS", askpass}, {"SSH_ASKPASS_REQUIRE", "force"}, {"DISPLAY", ":0"}};
    const std::vector<std::string> ssh{"ssh", "-o", "StrictHostKeyChecking=no", "-o", "UserKnownHostsFile=/dev/null",
                                       "-o", "PubkeyAuthentication=no", "-o", "LogLevel=ERROR", "-p",
                                       std::to_string(server.Port()), server.User() + "@127.0.0.1"};

    std::vector<double> session;
    std::vector<double> client;
    std::vector<double> derivation;
    rviz_plugin::KeyHandler keys;
    keys.InitPath((work.Path() / "config" / "material").string() + "/");
    for (int round = 0; round < rounds; ++round) {
        auto start = Clock::now();
        std::vector<unsigned char> key;
        keys.GenRootKey(key);
        derivation.push_back(Milliseconds(start));

        auto own = rviz_plugin::SessionFactory::CreateSession();
        start = Clock::now();
        if (test_support::ConnectAndWait(*own, login) != rviz_plugin::Session::Connected) {
            std::cerr << "login failed: " << own->GetErrorDescription() << "\n";
            return 1;
        }
        session.push_back(Milliseconds(start));
        own->Disconnect();

        std::vector<std::string> command = ssh;
        command.push_back("true");
        start = Clock::now();
        if (test_support::RunCommand(command, askpassEnvironment) != 0) {
            std::cerr << "the ssh client failed\n";
            return 1;
        }
        client.push_back(Milliseconds(start));
    }
    std::printf("connect (median of %d): session %.1f ms, ssh client %.1f ms, ratio %.2f (target <= 1.5)\n", rounds,
                Median(session), Median(client), Median(session) / Median(client));
    std::printf("  of which the root key derivation (PBKDF2, 10000 rounds): %.1f ms\n", Median(derivation));

    const std::string file = server.Home() + "/ten_megabytes.txt";
    {
        std::ofstream out(file);
        const std::string line(99, 'x');
        for (int index = 0; index < 100000; ++index) {
            out << line << '\n';
        }
    }
    std::filesystem::permissions(file, std::filesystem::perms::others_read, std::filesystem::perm_options::add);
    auto own = rviz_plugin::SessionFactory::CreateSession();
    test_support::ConnectAndWait(*own, login);
    test_support::OutputCollector output;
    auto start = Clock::now();
    own->Exec("cat " + file + ";exit", output.Callback());
    output.WaitFinished(std::chrono::minutes(2));
    const double sessionCat = Milliseconds(start);
    std::vector<std::string> command = ssh;
    command.push_back("cat " + file);
    start = Clock::now();
    test_support::RunCommand(command, askpassEnvironment, std::chrono::minutes(2));
    const double clientCat = Milliseconds(start);
    std::printf("cat 10 MB: session %.0f ms (%.1f MB/s, %zu bytes received), ssh client %.0f ms, ratio %.2f\n",
                sessionCat, 10.0 / (sessionCat / 1000.0), output.Text().size(), clientCat, sessionCat / clientCat);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    int rounds = 10;
    if (argc == 3 && std::strcmp(argv[1], "--rounds") == 0) {
        rounds = std::max(1, std::atoi(argv[2]));
    }
    return test_support::WithRosMaster(argc, argv, "remote_session_bench", [rounds]() { return Run(rounds); });
}

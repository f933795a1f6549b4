#include "ssh_server.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace test_support {

namespace {
bool PortAccepts(int port)
{
    return RunCommand({"bash", "-c", "exec 3<>/dev/tcp/127.0.0.1/" + std::to_string(port)}, {},
                      std::chrono::seconds(2)) == 0;
}
} // namespace

SshServer::SshServer(const std::string& work) : workDirectory(work + "/sshd")
{
    if (geteuid() != 0) {
        skipReason = "the SSH server tests need root (they make a test account); not root here";
        return;
    }
    if (!std::filesystem::exists("/usr/sbin/sshd")) {
        skipReason = "/usr/sbin/sshd is not installed";
        return;
    }
    namespace fs = std::filesystem;
    fs::create_directories(workDirectory);
    // The test account must pass through the work directory (made private) to its home and files.
    fs::permissions(fs::path(workDirectory).parent_path(), fs::perms::others_exec, fs::perm_options::add);
    fs::create_directories("/run/sshd");  // sshd's privilege separation directory
    user = "korat" + std::to_string(getpid() % 100000);
    home = workDirectory + "/home";
    if (RunCommand({"useradd", "-M", "-d", home, "-s", "/bin/sh", user}) != 0) {
        skipReason = "useradd failed";
        return;
    }
    accountMade = true;
    fs::create_directories(home);
    RunCommand({"chown", user, home});
    RunCommand({"bash", "-c", "echo '" + user + ":" + password + "' | chpasswd"});
    for (const char* type : {"ed25519", "ecdsa"}) {
        RunCommand({"ssh-keygen", "-q", "-t", type, "-N", "", "-f", workDirectory + "/host_" + type});
    }
    port = FreePort();
    std::ofstream(workDirectory + "/sshd_config") << "ListenAddress 127.0.0.1\n"
                                                  << "Port " << port << "\n"
                                                  << "HostKey " << workDirectory << "/host_ed25519\n"
                                                  << "HostKey " << workDirectory << "/host_ecdsa\n"
                                                  << "PidFile " << workDirectory << "/sshd.pid\n"
                                                  << "UsePAM no\nPasswordAuthentication yes\n"
                                                  << "KbdInteractiveAuthentication no\nPubkeyAuthentication no\n"
                                                  << "PermitRootLogin no\nStrictModes no\n"
                                                  << "AllowUsers " << user << "\nMaxStartups 64\nMaxSessions 64\n"
                                                  << "LogLevel VERBOSE\n";
    process = std::make_unique<Process>(
        std::vector<std::string>{"/usr/sbin/sshd", "-D", "-e", "-f", workDirectory + "/sshd_config"},
        workDirectory + "/sshd.log", Environment{}, 15);
    if (!WaitFor([this]() { return PortAccepts(port); }, std::chrono::seconds(15))) {
        skipReason = "sshd did not start: " + process->Log();
        process.reset();
    }
}

SshServer::~SshServer()
{
    process.reset();
    if (accountMade) {
        RunCommand({"pkill", "-KILL", "-u", user});
        RunCommand({"userdel", user});
    }
}

void SshServer::Kill()
{
    if (process != nullptr) {
        process->Stop(std::chrono::milliseconds(0));
    }
    RunCommand({"pkill", "-KILL", "-u", user});
}

} // namespace test_support

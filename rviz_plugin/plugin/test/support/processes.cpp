#include "processes.h"

#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace test_support {

namespace {

bool PortAccepts(int port)
{
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    if (fd < 0) {
        return false;
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool ok = connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
    close(fd);
    return ok;
}

pid_t Spawn(const std::vector<std::string>& command, const Environment& extra, int outputFd, int keepFd = -1)
{
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child != 0) {
        return child;
    }
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
        _exit(127);
    }
    signal(SIGINT, SIG_DFL);
    signal(SIGTERM, SIG_DFL);
    dup2(outputFd, STDOUT_FILENO);
    dup2(outputFd, STDERR_FILENO);
    const int devNull = open("/dev/null", O_RDONLY);
    dup2(devNull, STDIN_FILENO);
    for (const auto& [name, value] : extra) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    for (int fd = 3; fd < 1024; ++fd) {
        if (fd != keepFd) {
            close(fd);
        }
    }
    std::vector<char*> argv;
    for (const std::string& argument : command) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    execvp(argv[0], argv.data());
    _exit(127);
}

} // namespace

int FreePort()
{
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = 0;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof(address);
    if (fd < 0 || bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0 ||
        getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
        if (fd >= 0) {
            close(fd);
        }
        throw std::runtime_error("no free port");
    }
    close(fd);
    return ntohs(address.sin_port);
}

bool WaitFor(const std::function<bool()>& predicate, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!predicate()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return true;
}

Process::Process(const std::vector<std::string>& command, const std::string& log, const Environment& extra,
                 int signalToStop)
    : stopSignal(signalToStop), logFile(log)
{
    const int fd = open(logFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) {
        throw std::runtime_error("cannot open " + logFile);
    }
    pid = Spawn(command, extra, fd);
    close(fd);
    if (pid < 0) {
        throw std::runtime_error("cannot start " + command.front());
    }
}

Process::~Process()
{
    Stop();
}

bool Process::Running()
{
    if (pid <= 0) {
        return false;
    }
    const pid_t result = waitpid(pid, &status, WNOHANG);
    if (result == pid) {
        pid = -1;
        return false;
    }
    return true;
}

int Process::Stop(std::chrono::milliseconds grace)
{
    if (pid <= 0) {
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    const pid_t group = pid;
    kill(-group, stopSignal);
    const bool ended = WaitFor([this]() { return !Running(); }, grace);
    if (!ended) {
        kill(-pid, SIGKILL);
        waitpid(pid, &status, 0);
        pid = -1;
        return -1;
    }
    // Anything the main process left behind in its group goes too.
    kill(-group, SIGKILL);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Process::Log() const
{
    std::ifstream in(logFile);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

int RunCommand(const std::vector<std::string>& command, const Environment& extra, std::chrono::milliseconds timeout,
               const std::string& logFile)
{
    Process process(command, logFile, extra, SIGKILL);
    if (!WaitFor([&process]() { return !process.Running(); }, timeout)) {
        return -1;
    }
    return process.Stop();
}

RosMaster::RosMaster(const std::string& directory)
    : workDirectory(directory),
      port(FreePort()),
      uri("http://127.0.0.1:" + std::to_string(port)),
      // rosmaster installs no SIGINT handler: it stops on SIGTERM.
      process({"rosmaster", "--core", "-p", std::to_string(port)}, directory + "/rosmaster.log",
              {{"ROS_HOME", directory + "/roshome"}, {"ROS_IP", "127.0.0.1"}}, SIGTERM)
{
    if (!WaitFor([this]() { return PortAccepts(port); }, std::chrono::seconds(20))) {
        throw std::runtime_error("rosmaster did not start: " + process.Log());
    }
}

Environment RosMaster::RosEnvironment() const
{
    return {{"ROS_MASTER_URI", uri}, {"ROS_IP", "127.0.0.1"}, {"ROS_HOME", workDirectory + "/roshome"}};
}

bool RosMaster::SetParam(const std::string& name, const std::string& value) const
{
    return RunCommand({"rosparam", "set", name, value}, RosEnvironment()) == 0;
}

VirtualDisplay::VirtualDisplay(const std::string& workDirectory, const std::string& screen)
    : process({"Xvfb", "-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp"},
              workDirectory + "/xvfb.out")
{
    // Xvfb writes the display number it chose to its standard output, which goes to xvfb.out.
    const std::string output = workDirectory + "/xvfb.out";
    if (!WaitFor(
            [&]() {
                std::ifstream in(output);
                for (std::string line; std::getline(in, line);) {
                    if (!line.empty() && line.find_first_not_of("0123456789") == std::string::npos) {
                        display = ":" + line;
                        return true;
                    }
                }
                return false;
            },
            std::chrono::seconds(20))) {
        throw std::runtime_error("Xvfb did not start: " + process.Log());
    }
}

bool VirtualDisplay::Screenshot(const std::string& pngFile) const
{
    return RunCommand({"import", "-window", "root", pngFile}, {{"DISPLAY", display}}) == 0;
}

} // namespace test_support

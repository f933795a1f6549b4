#ifndef RVIZ_PLUGIN_TEST_PROCESSES_H
#define RVIZ_PLUGIN_TEST_PROCESSES_H

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace test_support {

using Environment = std::map<std::string, std::string>;

// A free TCP port on 127.0.0.1 at the time of the call.
int FreePort();

// Polls predicate every 50 ms until it holds or the timeout passes.
bool WaitFor(const std::function<bool()>& predicate, std::chrono::milliseconds timeout);

// A child process in a process group of its own, with stdout and stderr in a file. It is stopped
// when the object goes, and killed by the kernel if the test process dies first.
class Process {
public:
    Process(const std::vector<std::string>& command, const std::string& logFile, const Environment& extra = {},
            int stopSignal = 2);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    bool Running();
    // Sends the stop signal to the group, waits, then kills it. Returns the exit status or -1.
    int Stop(std::chrono::milliseconds grace = std::chrono::milliseconds(5000));
    const std::string& LogFile() const { return logFile; }
    std::string Log() const;
    pid_t Pid() const { return pid; }

private:
    pid_t pid = -1;
    int stopSignal;
    std::string logFile;
    int status = -1;
};

// Runs a command to its end; returns its exit code, or -1 when it could not run or timed out.
int RunCommand(const std::vector<std::string>& command, const Environment& extra = {},
               std::chrono::milliseconds timeout = std::chrono::milliseconds(30000),
               const std::string& logFile = "/dev/null");

// A ROS master on a free loopback port.
class RosMaster {
public:
    explicit RosMaster(const std::string& workDirectory);
    const std::string& Uri() const { return uri; }
    // ROS_MASTER_URI, ROS_IP and ROS_HOME for processes that talk to this master.
    Environment RosEnvironment() const;
    bool SetParam(const std::string& name, const std::string& value) const;

private:
    std::string workDirectory;
    int port;
    std::string uri;
    Process process;
};

// A virtual X server on a free display.
class VirtualDisplay {
public:
    explicit VirtualDisplay(const std::string& workDirectory, const std::string& screen = "1600x1000x24");
    const std::string& Display() const { return display; }
    // Saves the whole screen as PNG; returns whether the file was written.
    bool Screenshot(const std::string& pngFile) const;

private:
    std::string display;
    Process process;
};

} // namespace test_support

#endif

#ifndef RVIZ_PLUGIN_TEST_RVIZ_SESSION_H
#define RVIZ_PLUGIN_TEST_RVIZ_SESSION_H

#include "processes.h"

#include <chrono>
#include <memory>
#include <string>

namespace test_support {

// rviz itself, run on a virtual display against a test master with a given configuration.
// Its standard output and error are line buffered into <workDirectory>/rviz.log.
class RvizSession {
public:
    RvizSession(const RosMaster& master, const VirtualDisplay& display, const std::string& configFile,
                const std::string& workDirectory);

    bool WaitForLog(const std::string& text, std::chrono::milliseconds timeout);
    std::string Log() const { return process->Log(); }
    // Presses Ctrl+S in the rviz window and waits until the configuration file has been rewritten.
    bool SaveConfig(std::chrono::milliseconds timeout);
    int Stop() { return process->Stop(std::chrono::seconds(15)); }

private:
    std::string configFile;
    Environment environment;
    std::unique_ptr<Process> process;
};

} // namespace test_support

#endif

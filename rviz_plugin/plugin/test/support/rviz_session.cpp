#include "rviz_session.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

namespace test_support {

RvizSession::RvizSession(const RosMaster& master, const VirtualDisplay& display, const std::string& config,
                         const std::string& workDirectory)
    : configFile(config), environment(master.RosEnvironment())
{
    environment["DISPLAY"] = display.Display();
    environment["XDG_RUNTIME_DIR"] = workDirectory;
    // rviz's own settings and the tools' default folders ("~/Downloads") stay in the test's directory.
    environment["HOME"] = workDirectory;
    process = std::make_unique<Process>(std::vector<std::string>{"stdbuf", "-oL", "-eL", "rviz", "-d", configFile},
                                        workDirectory + "/rviz.log", environment);
}

bool RvizSession::WaitForLog(const std::string& text, std::chrono::milliseconds timeout)
{
    return WaitFor([&]() { return Log().find(text) != std::string::npos || !process->Running(); }, timeout) &&
           Log().find(text) != std::string::npos;
}

bool RvizSession::SaveConfig(std::chrono::milliseconds timeout)
{
    namespace fs = std::filesystem;
    const auto before = fs::last_write_time(configFile);
    const std::string title = fs::path(configFile).filename().string();
    // Without a window manager focus is given explicitly; the key press goes through XTEST.
    const std::string script = "w=$(xdotool search --sync --limit 1 --name '" + title +
                               "') && xdotool windowfocus --sync \"$w\" && xdotool key --clearmodifiers ctrl+s";
    if (RunCommand({"bash", "-c", script}, environment, std::chrono::seconds(20)) != 0) {
        return false;
    }
    if (!WaitFor([&]() { return fs::last_write_time(configFile) != before; }, timeout)) {
        return false;
    }
    // rviz truncates the file and then writes it: done when it has content that stops changing.
    std::uintmax_t size = 0;
    return WaitFor(
        [&]() {
            const std::uintmax_t now = fs::file_size(configFile);
            const bool settled = now > 0 && now == size;
            size = now;
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            return settled;
        },
        timeout);
}

} // namespace test_support

#ifndef RVIZ_PLUGIN_TEST_REMOTE_SUPPORT_H
#define RVIZ_PLUGIN_TEST_REMOTE_SUPPORT_H

#include "../support/processes.h"
#include "remote_commands/connection.h"
#include "remote_commands/session.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

namespace test_support {

// Collects a session's output until its last piece (the one with the exit prefix) has come.
class OutputCollector {
public:
    rviz_plugin::Session::OutputCallback Callback()
    {
        return [this](const std::string& piece) {
            std::lock_guard<std::mutex> lock(mutex);
            text += piece;
            finished = finished || piece.find("The command execution is finished: ") != std::string::npos;
            changed.notify_all();
        };
    }
    bool WaitFinished(std::chrono::milliseconds timeout)
    {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_for(lock, timeout, [this] { return finished; });
    }
    bool WaitFor(const std::string& part, std::chrono::milliseconds timeout)
    {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_for(lock, timeout, [&] { return text.find(part) != std::string::npos; });
    }
    std::string Text()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return text;
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    std::string text;
    bool finished = false;
};

// Connects and waits for the status (the state outlives a late callback).
inline rviz_plugin::Session::Status ConnectAndWait(rviz_plugin::Session& session,
                                                   const rviz_plugin::Connection& connection,
                                                   std::chrono::milliseconds timeout = std::chrono::seconds(20))
{
    struct State {
        std::mutex mutex;
        std::condition_variable done;
        int result = -1;
    };
    auto state = std::make_shared<State>();
    session.Connect(connection, [state](const rviz_plugin::Session::Status& status) {
        std::lock_guard<std::mutex> lock(state->mutex);
        state->result = status;
        state->done.notify_all();
    });
    std::unique_lock<std::mutex> lock(state->mutex);
    state->done.wait_for(lock, timeout, [&] { return state->result >= 0; });
    return static_cast<rviz_plugin::Session::Status>(state->result < 0 ? 0 : state->result);
}

} // namespace test_support

#endif

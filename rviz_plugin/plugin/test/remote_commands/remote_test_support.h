#ifndef RVIZ_PLUGIN_TEST_REMOTE_SUPPORT_H
#define RVIZ_PLUGIN_TEST_REMOTE_SUPPORT_H

#include "../support/processes.h"
#include "../support/ssh_server.h"
#include "../support/temp_dir.h"
#include "remote_commands/connection.h"
#include "remote_commands/session.h"

#include <gtest/gtest.h>
#include <ros/param.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

namespace test_support {

// Tests against an OpenSSH server of their own on 127.0.0.1, with orsaPath in a temporary directory;
// each test is skipped, with the reason, where the server cannot run (not root).
class SshServerTest : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        work = std::make_unique<TempDir>();
        ros::param::set("orsaPath", work->Path().string());
        server = std::make_unique<SshServer>(work->Path().string());
    }
    static void TearDownTestSuite()
    {
        server.reset();
        work.reset();
    }
    void SetUp() override
    {
        if (!server->Available()) {
            GTEST_SKIP() << server->SkipReason();
        }
    }
    // The server's address and test account, with this password.
    static rviz_plugin::Connection Login(const std::string& password)
    {
        rviz_plugin::Connection connection;
        connection.SetIp("127.0.0.1");
        connection.SetPort(std::to_string(server->Port()));
        connection.SetUserName(server->User());
        connection.SetPassword(password);
        return connection;
    }

    inline static std::unique_ptr<TempDir> work;
    inline static std::unique_ptr<SshServer> server;
};

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

#ifndef RVIZ_PLUGIN_TEST_SSH_SERVER_H
#define RVIZ_PLUGIN_TEST_SSH_SERVER_H

#include "processes.h"

#include <memory>
#include <string>

namespace test_support {

// An OpenSSH server on a free port of 127.0.0.1 with host keys and a configuration made in a work
// directory, and a test account with a password and a home there. Making the account needs root:
// Available() is false otherwise (with the reason in SkipReason()). Everything is removed at the end.
class SshServer {
public:
    explicit SshServer(const std::string& workDirectory);
    ~SshServer();
    SshServer(const SshServer&) = delete;
    SshServer& operator=(const SshServer&) = delete;

    bool Available() const { return process != nullptr; }
    const std::string& SkipReason() const { return skipReason; }
    int Port() const { return port; }
    const std::string& User() const { return user; }
    const std::string& Password() const { return password; }
    const std::string& Home() const { return home; }
    // Stops the server at once (SIGKILL to its group, including the sessions' processes).
    void Kill();

private:
    std::string workDirectory;
    std::string user;
    std::string password = "Kora-test-8d1f";
    std::string home;
    std::string skipReason;
    int port = 0;
    bool accountMade = false;
    std::unique_ptr<Process> process;
};

} // namespace test_support

#endif

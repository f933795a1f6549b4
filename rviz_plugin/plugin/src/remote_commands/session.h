#ifndef RVIZ_PLUGIN_SESSION_H
#define RVIZ_PLUGIN_SESSION_H

#include "connection.h"

#include <libssh2.h>

#include <array>
#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace rviz_plugin {

// One SSH login with one interactive pty shell on it. A command is a line typed into the shell; the
// shell's end (EOF) is the command's end. Everything that blocks runs on threads of the session's own;
// results come back through callbacks. The last output piece of a run always starts with "\n" and
// GetCmdExitCodePrefix(), followed by the exit code or a reason.
class Session {
public:
    enum Status { NotConnected = 0, Connected = 1 };
    enum ErrorCode {
        NoError = 0,
        SocketFailed = 1,
        SshFailed = 2,
        IncorrectPort = 3,
        IncorrectIp = 4,
        ConnectFailed = 5,
        DecryptFailed = 6,
        AuthorizationFailed = 7
    };
    using StatusCallback = std::function<void(const Status&)>;
    using OutputCallback = std::function<void(const std::string&)>;
    static constexpr std::size_t readBufferSize = 5120;
    static constexpr std::size_t passwordBufferSize = 5000;

    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void Init();
    void Connect(const Connection& connection, StatusCallback callback);
    void Disconnect(std::function<void()> callback);
    void Disconnect();
    void Terminate(std::function<void()> callback);
    void Exec(const std::string& command, OutputCallback callback);

    std::string GetCmdExitCodePrefix() const { return cmdExitCodePrefix; }
    int GetLastExitCode() const { return lastExitCode; }
    std::string GetErrorDescription() const;
    Status GetStatus() const { return status; }
    ErrorCode GetErrorCode() const { return errorCode; }
    bool IsReading() const { return isReading; }

private:
    void InternalConnect(const StatusCallback& callback);
    void InternalDisconnect();
    void InternalTerminate();
    void InternalExec(const std::string& command, const OutputCallback& callback);
    bool ConnectSock(const Connection& target);
    bool InitSshSession(const Connection& target);
    bool InitChannel();
    int WaitSocket();
    bool WriteChannel(const std::string& command);
    bool InternalLibSshWrite(const std::string& text);
    bool HasBufferedData();
    bool ReadChannel(std::string& output);
    bool IsChannelEof(std::string& output);
    void CloseSocket();
    void Fail(ErrorCode code, const std::string& text);
    std::string FinalPiece(const std::string& reason) const;
    static void JoinIfJoinable(std::thread& thread);

    int sock = -1;
    LIBSSH2_SESSION* sshSession = nullptr;
    LIBSSH2_CHANNEL* channel = nullptr;
    Connection connection;
    std::atomic<bool> stopReading{false};
    std::atomic<bool> isReading{false};
    std::atomic<int> lastExitCode{-1};
    std::thread connectThread;
    std::thread disconnectThread;
    std::thread execThread;
    std::thread terminateThread;
    std::array<char, readBufferSize> readBuffer{};
    const std::string cmdExitCodePrefix = "The command execution is finished: ";
    std::atomic<Status> status{NotConnected};
    std::atomic<ErrorCode> errorCode{NoError};
    std::map<ErrorCode, std::string> errorDescriptions;
    // libssh2 is not thread-safe on one session: every call on this one is made under this lock (the
    // reader, a Ctrl+C from the terminate thread, a disconnect from another thread).
    std::recursive_mutex libssh2Mutex;
};

// The only way to get a session: a new one on which Init() has run.
class SessionFactory {
public:
    static std::unique_ptr<Session> CreateSession();
};

} // namespace rviz_plugin

#endif

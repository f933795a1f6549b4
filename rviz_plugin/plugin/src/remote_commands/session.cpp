#include "session.h"

#include "foundation/bounded_memory.h"
#include "remote_log.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>

namespace rviz_plugin {

namespace {
constexpr int sessionTimeoutMs = 5000;
constexpr int keepAliveSeconds = 100;
constexpr unsigned windowSize = 0x200000;  // 2 MiB
constexpr unsigned packetSize = 32768;
constexpr int waitMs = 100;
constexpr int terminateRounds = 4;

void Debug(const std::string& text)
{
    RemoteLog(Orsa::LogLevel::Debug, text);
}
} // namespace

std::unique_ptr<Session> SessionFactory::CreateSession()
{
    auto session = std::make_unique<Session>();
    session->Init();
    return session;
}

Session::Session()
    : errorDescriptions{
          {NoError, ""},
          {SocketFailed, "Failed to create the socket, Check the network and try again."},
          {SshFailed, "An error occurred when establishing the SSH connection. For error information, see the log."},
          {IncorrectPort, "Incorrect port."},
          {IncorrectIp, "Incorrect IP."},
          {ConnectFailed, "Failed to connect to the SSH server. For error information, see the log."},
          {DecryptFailed, "Failed to decrypted password. For error information, see the log."},
          {AuthorizationFailed, "Authorization failed. Invalid username or password."}}
{
}

Session::~Session()
{
    InternalTerminate();
    InternalDisconnect();
    for (std::thread* thread : {&execThread, &terminateThread, &disconnectThread, &connectThread}) {
        JoinIfJoinable(*thread);
    }
    libssh2_exit();
}

void Session::JoinIfJoinable(std::thread& thread)
{
    if (thread.joinable()) {
        thread.join();
    }
}

void Session::Init()
{
    const int result = libssh2_init(0);
    if (result != 0) {
        errorCode = SshFailed;
        RemoteError("SSH library init failed. Error code: " + std::to_string(result));
    }
}

std::string Session::GetErrorDescription() const
{
    try {
        return errorDescriptions.at(errorCode);
    } catch (const std::exception& exception) {
        RemoteError("An exception occurred when searching for the description corresponding to error status [" +
                    std::to_string(static_cast<int>(errorCode)) + "]. Exception: " + exception.what());
        return {};
    }
}

void Session::Fail(ErrorCode code, const std::string& text)
{
    errorCode = code;
    if (!text.empty()) {
        RemoteError(text);
    }
}

std::string Session::FinalPiece(const std::string& reason) const
{
    return "\n" + cmdExitCodePrefix + reason + "\n\n";
}

void Session::Connect(const Connection& target, StatusCallback callback)
{
    JoinIfJoinable(connectThread);
    connection = target;
    connectThread = std::thread([this, callback = std::move(callback)]() { InternalConnect(callback); });
}

void Session::Disconnect(std::function<void()> callback)
{
    JoinIfJoinable(disconnectThread);
    disconnectThread = std::thread([this, callback = std::move(callback)]() {
        InternalDisconnect();
        if (callback) {
            callback();
        }
    });
}

void Session::Disconnect()
{
    InternalDisconnect();
}

void Session::Terminate(std::function<void()> callback)
{
    JoinIfJoinable(terminateThread);
    terminateThread = std::thread([this, callback = std::move(callback)]() {
        InternalTerminate();
        if (callback) {
            callback();
        }
    });
}

void Session::Exec(const std::string& command, OutputCallback callback)
{
    stopReading = true;
    JoinIfJoinable(execThread);
    stopReading = false;
    execThread = std::thread([this, command, callback = std::move(callback)]() { InternalExec(command, callback); });
}

void Session::InternalConnect(const StatusCallback& callback)
{
    if (status == Connected) {
        callback(Connected);
        return;
    }
    errorCode = NoError;
    bool connected = false;
    {
        const std::lock_guard<std::recursive_mutex> lock(libssh2Mutex);
        connected = ConnectSock(connection) && InitSshSession(connection) && InitChannel();
        if (connected) {
            status = Connected;
        }
    }
    if (connected) {
        callback(Connected);
        return;
    }
    InternalDisconnect();
    RemoteError("Failed to connect to the SSH server.");
    callback(NotConnected);
}

bool Session::ConnectSock(const Connection& target)
{
    int port = 0;
    try {
        port = std::stoi(target.GetPort());
    } catch (const std::exception& exception) {  // invalid_argument, out_of_range
        Fail(IncorrectPort, std::string("An unexpected exception occurred. Check whether the string type changed to "
                                        "int type is correct. Exception: ") +
                                exception.what());
        RemoteError(errorDescriptions.at(IncorrectPort));
        return false;
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));  // no range check: a larger number wraps
    address.sin_addr.s_addr = inet_addr(target.GetIp().c_str());
    if (address.sin_addr.s_addr == INADDR_NONE) {
        Fail(IncorrectIp, errorDescriptions.at(IncorrectIp));  // dotted IPv4 only: no look-up, no IPv6
        return false;
    }
    Debug("Creating socket...");
    sock = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (sock < 0) {
        Fail(SocketFailed, errorDescriptions.at(SocketFailed));
        return false;
    }
    Debug("Created socket [" + std::to_string(sock) + "].");
    const int synRetries = 2;  // an unreachable address fails within seconds
    setsockopt(sock, IPPROTO_TCP, TCP_SYNCNT, &synRetries, sizeof(synRetries));
    Debug("Connecting to socket [" + std::to_string(sock) + "].");
    if (connect(sock, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) {
        Debug("Connected to socket [" + std::to_string(sock) + "].");
        return true;
    }
    const int error = errno;
    Fail(ConnectFailed, "Failed to connect to the SSH server. Error code: " + std::to_string(error) + " " +
                            std::strerror(error) + ".");
    RemoteError(errorDescriptions.at(ConnectFailed));
    CloseSocket();
    return false;
}

bool Session::InitSshSession(const Connection& target)
{
    sshSession = libssh2_session_init_ex(nullptr, nullptr, nullptr, nullptr);
    if (sshSession == nullptr) {
        Fail(SshFailed, "Init SSH session failed, restart Orsa and try again.");
        return false;
    }
    libssh2_session_set_blocking(sshSession, 1);
    libssh2_session_set_timeout(sshSession, sessionTimeoutMs);
    const int handshake = libssh2_session_handshake(sshSession, sock);  // no host key check
    if (handshake < 0) {
        Fail(SshFailed, "SSH handshake failed. Error code: " + std::to_string(handshake));
        return false;
    }
    unsigned char password[passwordBufferSize];
    int length = 0;
    if (!target.GetDecryptedPassword(password, sizeof(password), length)) {
        memset_s(password, sizeof(password), 0, sizeof(password));
        Fail(DecryptFailed, errorDescriptions.at(DecryptFailed));
        return false;
    }
    const std::string& user = target.GetUserName();
    const int auth = libssh2_userauth_password_ex(sshSession, user.c_str(), static_cast<unsigned>(user.size()),
                                                  reinterpret_cast<const char*>(password),
                                                  static_cast<unsigned>(length), nullptr);
    const errno_t wiped = memset_s(password, sizeof(password), 0, sizeof(password));
    if (wiped != 0) {
        Fail(DecryptFailed, "memset_s password buffer failed. error code: " + std::to_string(wiped));
        return false;
    }
    if (auth == LIBSSH2_ERROR_AUTHENTICATION_FAILED) {
        Fail(AuthorizationFailed, errorDescriptions.at(AuthorizationFailed));
        return false;
    }
    if (auth < 0) {
        Fail(SshFailed, "SSH authorization failed. Error code: " + std::to_string(auth));
        return false;
    }
    libssh2_keepalive_config(sshSession, 0, keepAliveSeconds);
    return true;
}

bool Session::InitChannel()
{
    channel = libssh2_channel_open_ex(sshSession, "session", 7, windowSize, packetSize, nullptr, 0);
    if (channel == nullptr) {
        Fail(SshFailed, "SSH open channel failed. " + std::to_string(libssh2_session_last_errno(sshSession)));
        return false;
    }
    const int pty = libssh2_channel_request_pty_ex(channel, "vanilla", 7, nullptr, 0, 80, 24, 0, 0);
    if (pty < 0) {
        Fail(SshFailed, "SSH requesting pty failed. Error code: " + std::to_string(pty));
        return false;
    }
    const int shell = libssh2_channel_process_startup(channel, "shell", 5, nullptr, 0);
    if (shell < 0) {
        Fail(SshFailed, "SSH open shell on channel failed. Error code: " + std::to_string(shell));
        return false;
    }
    return true;
}

int Session::WaitSocket()
{
    if (sock < 0 || sshSession == nullptr) {
        errno = EBADF;
        return -1;
    }
    timeval timeout{0, waitMs * 1000};
    fd_set readSet;
    fd_set writeSet;
    FD_ZERO(&readSet);
    FD_ZERO(&writeSet);
    int directions = 0;
    {
        const std::lock_guard<std::recursive_mutex> lock(libssh2Mutex);
        directions = libssh2_session_block_directions(sshSession);
    }
    FD_SET(sock, &readSet);  // output may come at any time
    if ((directions & LIBSSH2_SESSION_BLOCK_OUTBOUND) != 0) {
        FD_SET(sock, &writeSet);
    }
    return select(sock + 1, &readSet, (directions & LIBSSH2_SESSION_BLOCK_OUTBOUND) != 0 ? &writeSet : nullptr,
                  nullptr, &timeout);
}

bool Session::WriteChannel(const std::string& command)
{
    if (command.empty()) {
        RemoteError("Failed to execute the command. The command is empty.");
        return false;
    }
    return InternalLibSshWrite(command) && InternalLibSshWrite("\n");
}

bool Session::InternalLibSshWrite(const std::string& text)
{
    const std::size_t length = std::strlen(text.c_str());  // up to the first zero byte
    for (;;) {
        ssize_t result = 0;
        {
            const std::lock_guard<std::recursive_mutex> lock(libssh2Mutex);
            if (channel == nullptr) {
                RemoteError("SSH write channel failed. Error code: " + std::to_string(LIBSSH2_ERROR_SOCKET_SEND));
                return false;
            }
            result = libssh2_channel_write_ex(channel, 0, text.c_str(), length);
        }
        if (result == LIBSSH2_ERROR_EAGAIN) {
            if (WaitSocket() < 0 && errno != EINTR) {
                RemoteError("WaitSocket " + std::to_string(sock) + " failed. Error code: " + std::to_string(errno) +
                            ".");
                return false;
            }
            continue;
        }
        if (result > 0) {
            return true;
        }
        InternalDisconnect();
        RemoteError("SSH write channel failed. Error code: " + std::to_string(result));
        return false;
    }
}

void Session::InternalExec(const std::string& command, const OutputCallback& callback)
{
    isReading = true;
    if (status == NotConnected) {
        callback(FinalPiece("Not connected."));
        isReading = false;
        return;
    }
    if (!WriteChannel(command)) {
        RemoteError("Failed to execute the command: " + command);
        callback(FinalPiece("Refer to the error information in the log."));
        isReading = false;
        return;
    }
    while (!stopReading) {
        std::string output;
        if (!ReadChannel(output)) {
            stopReading = true;
        }
        if (!output.empty()) {
            callback(output);
        }
    }
    isReading = false;
}

bool Session::HasBufferedData()
{
    const std::lock_guard<std::recursive_mutex> lock(libssh2Mutex);
    return channel != nullptr && libssh2_poll_channel_read(channel, 0) != 0;
}

bool Session::ReadChannel(std::string& output)
{
    // libssh2 takes whole packets (up to 32 KiB) from the socket and hands them out 5119 bytes a read:
    // while some are left the socket may stay quiet, so they are read without waiting for it.
    const int waited = HasBufferedData() ? 1 : WaitSocket();
    if (waited < 0 && errno != EINTR) {
        const int error = errno;
        InternalDisconnect();
        output = FinalPiece("socket error code " + std::to_string(error));
        RemoteError("WaitSocket " + std::to_string(sock) + " failed. Error code: " + std::to_string(error) + ".");
        return false;
    }
    if (waited == 0) {
        Debug("No data can be read or write in the socket.");
        return !IsChannelEof(output);
    }
    const std::lock_guard<std::recursive_mutex> lock(libssh2Mutex);
    const errno_t wiped = memset_s(readBuffer.data(), readBuffer.size(), 0, readBuffer.size());
    if (wiped != 0) {
        InternalDisconnect();
        output = FinalPiece("memset_s read buffer error code " + std::to_string(wiped));
        RemoteError("memset_s read buffer failed. error code: " + std::to_string(wiped));
        return false;
    }
    if (channel == nullptr) {
        output = FinalPiece("ssh read channel error code " + std::to_string(LIBSSH2_ERROR_SOCKET_RECV));
        return false;
    }
    const ssize_t read = libssh2_channel_read_ex(channel, 0, readBuffer.data(), readBuffer.size() - 1);
    if (read == LIBSSH2_ERROR_TIMEOUT) {
        Debug("SSH read channel time out.");
        return true;
    }
    if (read < 0 && read != LIBSSH2_ERROR_EAGAIN) {
        InternalDisconnect();
        output = FinalPiece("ssh read channel error code " + std::to_string(read));
        RemoteError("SSH read channel failed. error code: " + std::to_string(read));
        return false;
    }
    output = readBuffer.data();  // a C string: a zero byte in the output cuts this piece
    return true;
}

bool Session::IsChannelEof(std::string& output)
{
    const std::lock_guard<std::recursive_mutex> lock(libssh2Mutex);
    if (channel == nullptr) {
        output = FinalPiece("ssh get channel eof error code " + std::to_string(LIBSSH2_ERROR_SOCKET_RECV));
        return true;
    }
    const int eof = libssh2_channel_eof(channel);
    if (eof == 1) {
        lastExitCode = libssh2_channel_get_exit_status(channel);
        InternalDisconnect();
        output = FinalPiece(std::to_string(lastExitCode));
        Debug("EOF is read from the channel.");
        return true;
    }
    if (eof == LIBSSH2_ERROR_SOCKET_RECV) {
        InternalDisconnect();
        output = FinalPiece("Remote side unexpectedly closed network connection error code.");
        RemoteError("Failed check if the remote host has sent an EOF status for the selected stream. error code: " +
                    std::to_string(eof));
        return true;
    }
    if (eof >= 0) {
        return false;
    }
    InternalDisconnect();
    output = FinalPiece("ssh get channel eof error code " + std::to_string(eof));
    RemoteError("Failed check if the remote host has sent an EOF status for the selected stream. error code: " +
                std::to_string(eof));
    return true;
}

void Session::InternalTerminate()
{
    if (status == Connected) {
        int eof = 0;
        {
            const std::lock_guard<std::recursive_mutex> lock(libssh2Mutex);
            eof = channel != nullptr ? libssh2_channel_eof(channel) : LIBSSH2_ERROR_SOCKET_RECV;
        }
        if (eof == 0) {
            if (!WriteChannel(std::string(1, '\x03'))) {  // Ctrl+C, then a line feed
                RemoteError("Failed to write the command 'ctrl+c'.");
                return;
            }
        } else {
            if (eof < 0) {
                InternalDisconnect();
                RemoteError(
                    "Failed check if the remote host has sent an EOF status for the selected stream. error code: " +
                    std::to_string(eof));
            }
            RemoteLog(Orsa::LogLevel::Warn, "Force stopping reading channels");
            stopReading = true;
        }
        // Whole seconds even when a signal (a child process ending) interrupts the wait.
        for (int round = 0; round < terminateRounds && isReading; ++round) {
            std::this_thread::sleep_for(std::chrono::seconds(1));
        }
        if (isReading) {
            RemoteLog(Orsa::LogLevel::Warn, "Waiting termination timeout. Force stopping reading channels");
            stopReading = true;
        }
    }
    if (std::this_thread::get_id() != execThread.get_id()) {
        JoinIfJoinable(execThread);
    }
}

void Session::InternalDisconnect()
{
    const std::lock_guard<std::recursive_mutex> lock(libssh2Mutex);
    // Also after a failed connection attempt (not connected yet): what it made is released.
    if (status == NotConnected && sock < 0 && sshSession == nullptr) {
        return;
    }
    if (channel != nullptr) {
        const int closed = libssh2_channel_close(channel);
        if (closed == LIBSSH2_ERROR_SOCKET_SEND) {
            RemoteError("SSH closing channel. Socket already disconnected.");
        } else if (closed < 0) {
            RemoteError("SSH close channel failed. Error code: " + std::to_string(closed));
        }
        const int freed = libssh2_channel_free(channel);
        if (freed < 0) {
            RemoteError("SSH free channel failed. Error code: " + std::to_string(freed));
        }
        channel = nullptr;
    }
    if (sshSession != nullptr) {
        const int disconnected = libssh2_session_disconnect_ex(sshSession, SSH_DISCONNECT_BY_APPLICATION,
                                                               "Normal Shutdown", "");
        if (disconnected < 0) {
            RemoteError("SSH disconnect session failed. Error code: " + std::to_string(disconnected));
        }
        const int freed = libssh2_session_free(sshSession);
        if (freed < 0) {
            RemoteError("SSH free session failed. Error code: " + std::to_string(freed));
        }
        sshSession = nullptr;
    }
    CloseSocket();
    status = NotConnected;
}

void Session::CloseSocket()
{
    if (sock < 0) {
        return;
    }
    if (close(sock) != 0) {
        RemoteError("An error occurred when closing the socket [" + std::to_string(sock) + "], errno [" +
                    std::to_string(errno) + "].");
    }
    sock = -1;
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_READ_JSON_FILE_COMMAND_H
#define RVIZ_PLUGIN_READ_JSON_FILE_COMMAND_H

#include "session.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <memory>
#include <mutex>

namespace rviz_plugin {

class ConnectionManager;

// Reads a JSON file on the car with "cat" in a shell of its own; output over 1 MiB is refused.
class ReadJsonFileCommand : public QObject {
    Q_OBJECT
public:
    static constexpr std::size_t maxLength = 0x100000;

    explicit ReadJsonFileCommand(QObject* parent = nullptr);
    ~ReadJsonFileCommand() override;

    void Init(ConnectionManager* manager, const QString& path);
    // One read at a time: a call while one is under way is ignored.
    void Read();
    // From the first "{" to the last "}" of the output (drops the shell's echo and prompt), or "".
    QString GetJsonString() const;

Q_SIGNALS:
    void Connected();
    void ReadJsonFileFailed(const QString& reason);
    void ReadJsonFileFinished(const QString& json);

private:
    void OnConnected();
    void OnOutput(const std::string& text);
    void Finish();

    ConnectionManager* connectionManager = nullptr;
    std::string line;
    std::unique_ptr<Session> session;
    mutable std::mutex bufferMutex;
    std::string buffer;
    std::atomic<bool> reading{false};
    bool done = false;
};

} // namespace rviz_plugin

#endif

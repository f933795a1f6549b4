#include "read_json_file_command.h"

#include "builtin_commands_file.h"
#include "connection_manager.h"
#include "remote_log.h"

namespace rviz_plugin {

ReadJsonFileCommand::ReadJsonFileCommand(QObject* parent) : QObject(parent) {}

ReadJsonFileCommand::~ReadJsonFileCommand()
{
    session.reset();  // joins its threads before the buffer goes
}

void ReadJsonFileCommand::Init(ConnectionManager* manager, const QString& path)
{
    connectionManager = manager;
    line = "cat " + path.toStdString() + ";exit";
    connect(this, &ReadJsonFileCommand::Connected, this, &ReadJsonFileCommand::OnConnected, Qt::QueuedConnection);
}

void ReadJsonFileCommand::Read()
{
    if (reading.exchange(true)) {
        RemoteLog(Orsa::LogLevel::Warn, "A read of " + line + " is still under way.");
        return;
    }
    session = SessionFactory::CreateSession();
    {
        const std::lock_guard<std::mutex> lock(bufferMutex);
        buffer.clear();
        done = false;
    }
    session->Connect(connectionManager->GetCurrentConnection(), [this](const Session::Status& status) {
        if (status == Session::Connected) {
            Q_EMIT Connected();
            return;
        }
        reading = false;
        Q_EMIT ReadJsonFileFailed(QString::fromStdString(session->GetErrorDescription()));
    });
}

void ReadJsonFileCommand::OnConnected()
{
    session->Exec(line, [this](const std::string& text) { OnOutput(text); });
}

void ReadJsonFileCommand::OnOutput(const std::string& text)
{
    std::unique_lock<std::mutex> lock(bufferMutex);
    if (done) {
        return;
    }
    if (buffer.size() + text.size() > maxLength) {
        done = true;
        lock.unlock();
        RemoteError("An abnormal length data is received (over 1MB) from: " + line);
        session->Disconnect(nullptr);
        reading = false;
        Q_EMIT ReadJsonFileFailed(
            "An abnormal length data is received (over 1MB). Check whether the content in the file is correct.");
        return;
    }
    buffer += text;
    if (buffer.find(session->GetCmdExitCodePrefix()) != std::string::npos) {
        done = true;
        lock.unlock();
        Finish();
    }
}

void ReadJsonFileCommand::Finish()
{
    session->Disconnect(nullptr);
    reading = false;
    Q_EMIT ReadJsonFileFinished(GetJsonString());
}

QString ReadJsonFileCommand::GetJsonString() const
{
    const std::lock_guard<std::mutex> lock(bufferMutex);
    const std::string json = JsonObjectText(buffer);
    if (json.empty()) {
        RemoteError("Failed to parse JSON object from string: '" + buffer + "'");
    }
    return QString::fromStdString(json);
}

} // namespace rviz_plugin

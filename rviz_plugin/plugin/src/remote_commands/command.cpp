#include "command.h"

#include "builtin_commands_file.h"
#include "connection_manager.h"
#include "remote_log.h"

namespace rviz_plugin {

const QMap<QString, int> Command::STRING_TO_BUTTON_FLAG = []() {
    QMap<QString, int> flags;
    for (const auto& [name, flag] : ButtonFlagNames()) {
        flags.insert(QString::fromStdString(name), flag);
    }
    return flags;
}();

Command::~Command() = default;

void Command::Init(ConnectionManager* manager, std::function<void()> configChanged)
{
    qRegisterMetaType<rviz_plugin::Command::ExecutionStatus>();
    connectionManager = manager;
    configChangedCallback = std::move(configChanged);
    session = SessionFactory::CreateSession();
}

void Command::SetName(const QString& text)
{
    name = text;
    Q_EMIT CommandNameChanged(name);
    if (configChangedCallback) {
        configChangedCallback();
    }
}

void Command::SetEditableCommand(const QString& text)
{
    editableCommand = text;
    if (configChangedCallback) {
        configChangedCallback();
    }
}

QString Command::GetFullCommand() const
{
    QString full = GetTemplate();
    const int placeHolder = full.indexOf("{}");
    if (placeHolder >= 0) {
        full.replace(placeHolder, 2, editableCommand);
    }
    return full;
}

QString Command::GetCommandExecutable(const QString& text, const QString& separator)
{
    return text.left(text.indexOf(separator));
}

QString Command::GetLastCommand(const QString& text, const QString& separator)
{
    return text.right(text.indexOf(separator));
}

void Command::SetStatus(ExecutionStatus status)
{
    executionStatus = status;
    Q_EMIT ExecutionStatusChanged(status);
}

void Command::Execute()
{
    if (executionStatus != Standby) {
        RemoteError(name.toStdString() + " is not standby, No need to call Execute.");
        return;
    }
    executionStatus = Launching;
    Q_EMIT AboutToChangeExecutionStatus();
    session->Connect(connectionManager->GetCurrentConnection(), [this](const Session::Status& status) {
        if (status == Session::NotConnected) {
            SetStatus(Standby);
            Q_EMIT LaunchCommandFailed(QString::fromStdString(session->GetErrorDescription()));
            return;
        }
        QString full = GetFullCommand();
        const QString last = GetLastCommand(GetLastCommand(GetLastCommand(full, ";"), "&&"), "||");
        if (last != "exit") {
            full += ";exit";
        }
        session->Exec(full.toStdString(), [this](const std::string& text) { OnOutput(text); });
    });
}

void Command::OnOutput(const std::string& text)
{
    if (executionStatus == Launching) {
        SetStatus(Running);  // the first output of any kind: the shell runs
    }
    if (text.find(session->GetCmdExitCodePrefix()) != std::string::npos && executionStatus == Running) {
        SetStatus(Standby);
    }
    RemoteLog(Orsa::LogLevel::Debug, text);
    Q_EMIT ReceivedOutput(QString::fromStdString(text));
}

void Command::Terminate(std::function<void()> callback)
{
    if (executionStatus != Running) {
        RemoteError(name.toStdString() + " is not running, No need to call terminate.");
        if (callback) {
            callback();
        }
        return;
    }
    executionStatus = Terminating;
    Q_EMIT AboutToChangeExecutionStatus();
    session->Terminate([this, callback = std::move(callback)]() {
        session->Disconnect([this, callback]() {
            if (executionStatus == Terminating) {
                SetStatus(Standby);
            }
            if (callback) {
                callback();
            }
        });
    });
}

void Command::CheckCommandValidity()
{
    if (!ShouldVerifyValidity()) {
        return;
    }
    if (executionStatus != Standby) {
        RemoteError(name.toStdString() + " is not standby, can not check command validity.");
        return;
    }
    executionStatus = CheckingValidity;
    Q_EMIT AboutToCheckCommandValidity();
    session->Connect(connectionManager->GetCurrentConnection(), [this](const Session::Status& status) {
        if (status == Session::NotConnected) {
            executionStatus = Standby;
            Q_EMIT CommandValidityChecked(false);
            Q_EMIT CheckCommandValidityFailed(QString::fromStdString(session->GetErrorDescription()));
            return;
        }
        QString executable = GetFullCommand();
        for (const char* separator : {" ", "&&", "||", ";"}) {
            executable = GetCommandExecutable(executable, separator);
        }
        session->Exec(("which " + executable + ";exit").toStdString(),
                      [this](const std::string& text) { OnCheckOutput(text); });
    });
}

void Command::OnCheckOutput(const std::string& text)
{
    RemoteLog(Orsa::LogLevel::Debug, text);
    if (text.find(session->GetCmdExitCodePrefix()) == std::string::npos) {
        return;
    }
    session->Terminate([this]() {
        session->Disconnect([this]() {
            executionStatus = Standby;
            Q_EMIT CommandValidityChecked(session->GetLastExitCode() == 0);
        });
    });
}

} // namespace rviz_plugin

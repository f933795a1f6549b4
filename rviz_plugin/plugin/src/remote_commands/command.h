#ifndef RVIZ_PLUGIN_COMMAND_H
#define RVIZ_PLUGIN_COMMAND_H

#include "session.h"

#include <QMap>
#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

namespace rviz_plugin {

class ConnectionManager;

// A named shell line run on the car in a shell of its own (each command has its own session). The
// shell ends with the command (";exit" is added), which is how the end is seen. Signals come from the
// session's threads; widgets receive them queued.
class Command : public QObject {
    Q_OBJECT
public:
    enum ExecutionStatus { Standby = 0, Running = 1, CheckingValidity = 2, Launching = 3, Terminating = 4 };
    enum ButtonFlag { HasExecute = 1, HasView = 2, HasEdit = 4, HasRemove = 8 };
    static const QMap<QString, int> STRING_TO_BUTTON_FLAG;

    ~Command() override;

    virtual int GetButtonFlag() const { return buttonFlag; }
    virtual void SetButtonFlag(int flag) { buttonFlag = flag; }
    virtual bool IsBuiltinCommand() const { return isBuiltinCommand; }
    virtual void SetIsBuiltinCommand(bool builtin) { isBuiltinCommand = builtin; }
    virtual bool ShouldVerifyValidity() const { return shouldVerifyValidity; }
    virtual void SetShouldVerifyValidity(bool verify) { shouldVerifyValidity = verify; }
    virtual QString GetTemplate() const { return commandTemplate; }
    virtual void SetTemplate(const QString& text) { commandTemplate = text; }
    virtual QString GetCommandDescription() const { return commandDescription; }
    virtual void SetCommandDescription(const QString& text) { commandDescription = text; }

    void Init(ConnectionManager* manager, std::function<void()> configChanged);
    const QString& GetName() const { return name; }
    void SetName(const QString& text);
    const QString& GetEditableCommand() const { return editableCommand; }
    void SetEditableCommand(const QString& text);
    // The template with its first "{}" replaced by the editable part.
    QString GetFullCommand() const;
    ExecutionStatus GetExecutionStatus() const { return executionStatus; }

    void Execute();
    void Terminate(std::function<void()> callback);
    void CheckCommandValidity();

    // text.left(index of separator): the whole text without the separator.
    static QString GetCommandExecutable(const QString& text, const QString& separator);
    // text.right(index of separator): as many characters from the end as the separator stands from the
    // start, which is the last piece only when the pieces are of like length.
    static QString GetLastCommand(const QString& text, const QString& separator);

Q_SIGNALS:
    void AboutToCheckCommandValidity();
    void CommandValidityChecked(bool valid);
    void CheckCommandValidityFailed(const QString& reason);
    void AboutToChangeExecutionStatus();
    void ExecutionStatusChanged(rviz_plugin::Command::ExecutionStatus status);
    void LaunchCommandFailed(const QString& reason);
    void ReceivedOutput(const QString& text);
    void CommandNameChanged(const QString& name);

private:
    void SetStatus(ExecutionStatus status);
    void OnOutput(const std::string& text);
    void OnCheckOutput(const std::string& text);

    QString name;
    QString editableCommand;
    int buttonFlag = HasExecute | HasView | HasEdit | HasRemove;
    bool isBuiltinCommand = false;
    bool shouldVerifyValidity = false;
    QString commandTemplate = "{}";
    QString commandDescription;
    std::atomic<ExecutionStatus> executionStatus{Standby};
    ConnectionManager* connectionManager = nullptr;
    std::unique_ptr<Session> session;
    std::function<void()> configChangedCallback;
};

} // namespace rviz_plugin

Q_DECLARE_METATYPE(rviz_plugin::Command::ExecutionStatus)

#endif

#ifndef RVIZ_PLUGIN_COMMAND_MANAGER_H
#define RVIZ_PLUGIN_COMMAND_MANAGER_H

#include "command.h"

#include <QMap>
#include <QObject>

#include <functional>
#include <list>
#include <memory>
#include <vector>

namespace rviz {
class Config;
}

namespace rviz_plugin {

class ConnectionManager;
class ReadJsonFileCommand;

// The panel's commands: the car's built-in ones first (read from the car after each login, or compiled
// in when the file cannot be read), then the user's; at most 20, names unique; kept in the panel's
// configuration as "name", "command", "isBuiltinCommand".
class CommandManager : public QObject {
    Q_OBJECT
public:
    static constexpr const char* builtinCommandsFile =
        "/opt/platform/kora_platform/manual_service/viz/viz_builtin_commands.json";
    static int GetMaxCommandSize() { return 20; }
    static int GetMaxCommandNameTextLength() { return 25; }
    static int GetMaxCommandTextLength() { return 4000; }

    CommandManager();
    ~CommandManager() override;

    // builtinFile: where the car keeps its built-in commands (tests point it elsewhere).
    void Init(ConnectionManager* manager, std::function<void()> configChanged,
              const QString& builtinFile = builtinCommandsFile);
    void AddBuiltinCommands();
    bool AddCommand(const QString& name, const QString& command, bool isBuiltin);
    bool RemoveCommand(const QString& name);
    Command* GetCommand(const QString& name) const;
    std::vector<Command*> GetCommands() const;
    bool IsCommandNameExist(const QString& name) const;
    bool IsAbleAdd(const QString& name) const;
    bool IsLoading() const;
    void TerminateAll();
    // "" when text is fine, else the warning.
    static QString VerifyContent(const QString& text, int maxLength, bool checkCharacters);
    void Save(rviz::Config config) const;
    void Load(const rviz::Config& config);
    // The file's built-in commands, or an empty list when the text does not follow the schema.
    static bool ParseVizBuiltinCommandsJson(const QString& text, std::vector<std::unique_ptr<Command>>& commands);

Q_SIGNALS:
    void CommandsChanged();
    void CommandTerminated();
    void AboutToAddBuiltinCommand();
    void BuiltinCommandAdded();
    void ReadBuiltinCommandsConfigFailed(const QString& reason);

private:
    void OnReadJsonFileFinished(const QString& text);
    void OnReadJsonFileFailed(const QString& reason);
    void InternalAddBuiltinCommands(std::vector<std::unique_ptr<Command>> list);
    void AddBuiltinCommand(std::unique_ptr<Command> command);
    void CacheUserConfigOfBuiltinCommands(const std::vector<std::unique_ptr<Command>>& list);
    void InternalRemoveBuiltinCommands();
    void RecoverUserConfigOfBuiltinCommands();

    std::list<std::unique_ptr<Command>> commands;
    ConnectionManager* connectionManager = nullptr;
    std::function<void()> configChangedCallback;
    std::unique_ptr<ReadJsonFileCommand> readJsonFileCommand;
    QMap<QString, QString> userArguments;  // built-in command name to the user's arguments
    bool loading = false;
};

} // namespace rviz_plugin

#endif

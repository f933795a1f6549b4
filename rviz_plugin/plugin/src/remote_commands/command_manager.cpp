#include "command_manager.h"

#include "builtin_command.h"
#include "builtin_commands_file.h"
#include "camera_orsa_command.h"
#include "lidar_orsa_command.h"
#include "modify_viz_address_command.h"
#include "radar_orsa_command.h"
#include "read_json_file_command.h"
#include "remote_log.h"

#include <rviz/config.h>

#include <algorithm>

namespace rviz_plugin {

namespace {
constexpr int maxShownCharacters = 6;  // invalid characters named in a warning
} // namespace


CommandManager::CommandManager() = default;

CommandManager::~CommandManager() = default;

void CommandManager::Init(ConnectionManager* manager, std::function<void()> configChanged, const QString& builtinFile)
{
    connectionManager = manager;
    configChangedCallback = std::move(configChanged);
    readJsonFileCommand = std::make_unique<ReadJsonFileCommand>();
    readJsonFileCommand->Init(manager, builtinFile);
    connect(readJsonFileCommand.get(), &ReadJsonFileCommand::ReadJsonFileFailed, this,
            &CommandManager::OnReadJsonFileFailed);
    connect(readJsonFileCommand.get(), &ReadJsonFileCommand::ReadJsonFileFinished, this,
            &CommandManager::OnReadJsonFileFinished);
}

void CommandManager::AddBuiltinCommands()
{
    loading = true;
    Q_EMIT AboutToAddBuiltinCommand();
    readJsonFileCommand->Read();
}

bool CommandManager::ParseVizBuiltinCommandsJson(const QString& text, std::vector<std::unique_ptr<Command>>& list)
{
    QString ip;
    QString port;
    ModifyVizAddressCommand::GetOrsaListenIpAndPort(ip, port);
    std::vector<BuiltinCommandEntry> entries;
    if (!ParseBuiltinCommandsText(text.toStdString(), QString("%1 %2").arg(ip, port).toStdString(), entries)) {
        return false;
    }
    for (const BuiltinCommandEntry& entry : entries) {
        auto command = std::make_unique<BuiltinCommand>();
        command->SetName(QString::fromStdString(entry.name));
        command->SetShouldVerifyValidity(entry.checkValidity);
        command->SetTemplate(QString::fromStdString(entry.commandTemplate));
        command->SetEditableCommand(QString::fromStdString(entry.defaultArgument));
        command->SetButtonFlag(entry.buttonFlag);
        command->SetCommandDescription(QString::fromStdString(entry.description));
        list.push_back(std::move(command));
    }
    return true;
}

void CommandManager::OnReadJsonFileFinished(const QString& text)
{
    if (text.isEmpty()) {
        OnReadJsonFileFailed("No valid builtin command info is read from the SSH server. The default builtin commands "
                             "will be displayed. For details, see the log.");
        return;
    }
    std::vector<std::unique_ptr<Command>> list;
    if (!ParseVizBuiltinCommandsJson(text, list)) {
        CacheUserConfigOfBuiltinCommands({});
        InternalRemoveBuiltinCommands();
        loading = false;
        Q_EMIT ReadBuiltinCommandsConfigFailed(
            "The viz_builtin_commands.json file format is incorrect. The built-in commands cannot be displayed.");
        return;
    }
    InternalAddBuiltinCommands(std::move(list));
}

void CommandManager::OnReadJsonFileFailed(const QString& reason)
{
    Q_EMIT ReadBuiltinCommandsConfigFailed(reason);
    std::vector<std::unique_ptr<Command>> list;
    list.push_back(std::make_unique<CameraOrsaCommand>());
    list.push_back(std::make_unique<LidarOrsaCommand>());
    list.push_back(std::make_unique<RadarOrsaCommand>());
    list.push_back(std::make_unique<ModifyVizAddressCommand>());
    InternalAddBuiltinCommands(std::move(list));
}

void CommandManager::CacheUserConfigOfBuiltinCommands(const std::vector<std::unique_ptr<Command>>& list)
{
    for (const auto& command : commands) {
        if (!command->IsBuiltinCommand()) {
            continue;
        }
        const auto incoming = std::find_if(list.begin(), list.end(), [&](const auto& candidate) {
            return candidate->GetName() == command->GetName();
        });
        if (incoming == list.end() || (*incoming)->GetEditableCommand() != command->GetEditableCommand()) {
            userArguments[command->GetName()] = command->GetEditableCommand();
        }
    }
}

void CommandManager::InternalRemoveBuiltinCommands()
{
    commands.remove_if([](const std::unique_ptr<Command>& command) { return command->IsBuiltinCommand(); });
    Q_EMIT CommandsChanged();
}

void CommandManager::InternalAddBuiltinCommands(std::vector<std::unique_ptr<Command>> list)
{
    CacheUserConfigOfBuiltinCommands(list);
    InternalRemoveBuiltinCommands();
    std::vector<Command*> added;
    for (auto& command : list) {
        added.push_back(command.get());
        AddBuiltinCommand(std::move(command));
    }
    RecoverUserConfigOfBuiltinCommands();
    Q_EMIT BuiltinCommandAdded();
    loading = false;
    for (const auto& command : commands) {
        if (std::find(added.begin(), added.end(), command.get()) != added.end()) {
            command->CheckCommandValidity();  // only those of this list that were added
        }
    }
}

void CommandManager::AddBuiltinCommand(std::unique_ptr<Command> command)
{
    if (command == nullptr) {
        RemoteError("The command is nullptr.");
        return;
    }
    if (!IsAbleAdd(command->GetName())) {
        return;
    }
    command->Init(connectionManager, configChangedCallback);
    const auto firstUserCommand = std::find_if(commands.begin(), commands.end(),
                                               [](const auto& existing) { return !existing->IsBuiltinCommand(); });
    commands.insert(firstUserCommand, std::move(command));
    Q_EMIT CommandsChanged();
}

void CommandManager::RecoverUserConfigOfBuiltinCommands()
{
    for (auto it = userArguments.begin(); it != userArguments.end(); ++it) {
        if (Command* command = GetCommand(it.key()); command != nullptr && command->IsBuiltinCommand()) {
            command->SetEditableCommand(it.value());
        }
    }
}

bool CommandManager::IsAbleAdd(const QString& name) const
{
    if (static_cast<int>(commands.size()) >= GetMaxCommandSize()) {
        RemoteError("The number reaches the maximum 20. No more can be added.");
        return false;
    }
    if (IsCommandNameExist(name)) {
        RemoteError("The command name already exists. Please change the command name.");
        return false;
    }
    return true;
}

bool CommandManager::AddCommand(const QString& name, const QString& command, bool isBuiltin)
{
    if (!IsAbleAdd(name)) {
        return false;
    }
    auto added = isBuiltin ? std::make_unique<BuiltinCommand>() : std::make_unique<Command>();
    added->Init(connectionManager, configChangedCallback);
    added->SetName(name);
    added->SetEditableCommand(command);
    added->SetIsBuiltinCommand(isBuiltin);
    commands.push_back(std::move(added));
    Q_EMIT CommandsChanged();
    return true;
}

bool CommandManager::RemoveCommand(const QString& name)
{
    const auto found =
        std::find_if(commands.begin(), commands.end(), [&](const auto& command) { return command->GetName() == name; });
    if (found == commands.end()) {
        RemoteError("The command name not exists. Please change the command name.");
        return false;
    }
    commands.erase(found);
    Q_EMIT CommandsChanged();
    if (configChangedCallback) {
        configChangedCallback();
    }
    return true;
}

Command* CommandManager::GetCommand(const QString& name) const
{
    const auto found =
        std::find_if(commands.begin(), commands.end(), [&](const auto& command) { return command->GetName() == name; });
    return found != commands.end() ? found->get() : nullptr;
}

std::vector<Command*> CommandManager::GetCommands() const
{
    std::vector<Command*> list;
    for (const auto& command : commands) {
        list.push_back(command.get());
    }
    return list;
}

bool CommandManager::IsCommandNameExist(const QString& name) const
{
    return GetCommand(name) != nullptr;
}

bool CommandManager::IsLoading() const
{
    return loading || std::any_of(commands.begin(), commands.end(), [](const auto& command) {
               return command->GetExecutionStatus() > Command::Running;
           });
}

void CommandManager::TerminateAll()
{
    for (const auto& command : commands) {
        command->Terminate([this]() { Q_EMIT CommandTerminated(); });
    }
}

QString CommandManager::VerifyContent(const QString& text, int maxLength, bool checkCharacters)
{
    if (text.isEmpty()) {
        return "No content.";
    }
    if (text.size() > maxLength) {
        return QString("The current number of characters is %1, which exceeds %2.").arg(text.size()).arg(maxLength);
    }
    if (!checkCharacters) {
        return {};
    }
    QStringList invalid;
    bool more = false;
    for (const QChar character : text.left(maxLength)) {
        if (character.unicode() > 127) {
            if (invalid.size() == maxShownCharacters) {
                more = true;
                break;
            }
            invalid << QString(character);
        }
    }
    if (invalid.isEmpty()) {
        return {};
    }
    return "Invalid character: " + invalid.join(", ") + (more ? "..." : ".");
}

void CommandManager::Save(rviz::Config config) const
{
    config.setType(rviz::Config::List);
    for (const auto& command : commands) {
        rviz::Config entry = config.listAppendNew();
        entry.mapSetValue("name", command->GetName());
        entry.mapSetValue("command", command->GetEditableCommand());
        entry.mapSetValue("isBuiltinCommand", command->IsBuiltinCommand());
    }
}

void CommandManager::Load(const rviz::Config& config)
{
    for (int index = 0; index < config.listLength(); ++index) {
        const rviz::Config entry = config.listChildAt(index);
        QString name;
        QString command;
        bool isBuiltin = false;
        entry.mapGetString("name", &name);
        entry.mapGetString("command", &command);
        entry.mapGetBool("isBuiltinCommand", &isBuiltin);
        const QString warning = !VerifyContent(name, GetMaxCommandNameTextLength(), false).isEmpty()
                                    ? VerifyContent(name, GetMaxCommandNameTextLength(), false)
                                    : VerifyContent(command, GetMaxCommandTextLength(), true);
        if (!warning.isEmpty()) {
            RemoteLog(Orsa::LogLevel::Warn, "Skipped the saved command '" + name.toStdString() + "': " +
                                                warning.toStdString());
            continue;
        }
        AddCommand(name, command, isBuiltin);
    }
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_KORA_REMOTE_COMMANDS_PANEL_H
#define RVIZ_PLUGIN_KORA_REMOTE_COMMANDS_PANEL_H

#include "remote_commands/command_manager.h"
#include "remote_commands/connection_manager.h"
#include "remote_commands/session.h"
#include "remote_commands/version_compatibility_checker.h"

#include <rviz/panel.h>

#include <memory>

class QStackedWidget;

namespace rviz {
class PanelDockWidget;
}

namespace rviz_plugin {

class CommandListWidget;
class LoginStatusWidget;
class LoginWidget;

// "KORA Remote Commands": log into the car over SSH, see whether this visualiser fits its software,
// and run the car's built-in commands and the user's own, each with an output window. The car's host
// key is not checked.
class KoraRemoteCommandsPanel : public rviz::Panel {
    Q_OBJECT
public:
    explicit KoraRemoteCommandsPanel(QWidget* parent = nullptr);
    ~KoraRemoteCommandsPanel() override;

    void onInitialize() override;
    void save(rviz::Config config) const override;
    void load(const rviz::Config& config) override;
    rviz::PanelDockWidget* CreatePopupPanel(const QString& title, QWidget* contents);
    CommandManager& GetCommandManager() { return commandManager; }

Q_SIGNALS:
    void LoggedIn();
    void LoginFailed();

public Q_SLOTS:
    void OnLoginButtonClicked();
    void OnLoggedIn();
    void OnLoginFailed();
    void OnLogoutButtonClicked();
    void OnCommandTerminated();
    void OnAboutToAddBuiltinCommand();
    void OnBuiltinCommandAdded();
    void OnReadBuiltinCommandsConfigFailed(const QString& reason);

private:
    void ConfigChanged();

    ConnectionManager connectionManager;
    CommandManager commandManager;
    VersionCompatibilityChecker versionChecker;
    std::unique_ptr<Session> loginSession;
    Connection pendingConnection;
    QStackedWidget* pages = nullptr;
    LoginWidget* loginWidget = nullptr;
    LoginStatusWidget* loginStatusWidget = nullptr;
    CommandListWidget* commandListWidget = nullptr;
};

} // namespace rviz_plugin

#endif

#include "kora_remote_commands_panel.h"

#include "command_list_widget.h"
#include "login_status_widget.h"
#include "login_widget.h"
#include "remote_commands/remote_log.h"

#include <rviz/config.h>
#include <rviz/display_context.h>
#include <rviz/panel_dock_widget.h>
#include <rviz/visualization_manager.h>
#include <rviz/window_manager_interface.h>

#include <QLabel>
#include <QMessageBox>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace rviz_plugin {

KoraRemoteCommandsPanel::KoraRemoteCommandsPanel(QWidget* parent) : rviz::Panel(parent) {}

KoraRemoteCommandsPanel::~KoraRemoteCommandsPanel() = default;

void KoraRemoteCommandsPanel::onInitialize()
{
    connectionManager.Init([this]() { ConfigChanged(); });
    commandManager.Init(&connectionManager, [this]() { ConfigChanged(); });
    versionChecker.Init(&connectionManager);

    auto* layout = new QVBoxLayout(this);
    pages = new QStackedWidget(this);
    loginWidget = new LoginWidget(&connectionManager, pages);
    auto* loggedIn = new QWidget(pages);
    auto* loggedInLayout = new QVBoxLayout(loggedIn);
    loggedInLayout->setContentsMargins(0, 0, 0, 0);
    loginStatusWidget = new LoginStatusWidget(loggedIn);
    commandListWidget = new CommandListWidget(
        &commandManager, [this](const QString& title, QWidget* contents) { return CreatePopupPanel(title, contents); },
        loggedIn);
    loggedInLayout->addWidget(loginStatusWidget);
    loggedInLayout->addWidget(commandListWidget, 1);
    pages->addWidget(loginWidget);
    pages->addWidget(loggedIn);
    layout->addWidget(pages);

    connect(loginWidget, &LoginWidget::LoginButtonClicked, this, &KoraRemoteCommandsPanel::OnLoginButtonClicked);
    connect(this, &KoraRemoteCommandsPanel::LoggedIn, this, &KoraRemoteCommandsPanel::OnLoggedIn, Qt::QueuedConnection);
    connect(this, &KoraRemoteCommandsPanel::LoginFailed, this, &KoraRemoteCommandsPanel::OnLoginFailed,
            Qt::QueuedConnection);
    connect(loginStatusWidget, &LoginStatusWidget::LogoutButtonClicked, this,
            &KoraRemoteCommandsPanel::OnLogoutButtonClicked);
    connect(&commandManager, &CommandManager::CommandTerminated, this, &KoraRemoteCommandsPanel::OnCommandTerminated);
    connect(&commandManager, &CommandManager::AboutToAddBuiltinCommand, this,
            &KoraRemoteCommandsPanel::OnAboutToAddBuiltinCommand);
    connect(&commandManager, &CommandManager::BuiltinCommandAdded, this, &KoraRemoteCommandsPanel::OnBuiltinCommandAdded);
    connect(&commandManager, &CommandManager::ReadBuiltinCommandsConfigFailed, this,
            &KoraRemoteCommandsPanel::OnReadBuiltinCommandsConfigFailed);
    connect(&versionChecker, &VersionCompatibilityChecker::CheckFinished, loginStatusWidget,
            &LoginStatusWidget::SetCheckVersion);
    loginWidget->OnConnectionsChanged();
}

void KoraRemoteCommandsPanel::ConfigChanged()
{
    Q_EMIT configChanged();
}

rviz::PanelDockWidget* KoraRemoteCommandsPanel::CreatePopupPanel(const QString& title, QWidget* contents)
{
    rviz::WindowManagerInterface* windows = vis_manager_ != nullptr ? vis_manager_->getWindowManager() : nullptr;
    return windows != nullptr ? windows->addPane(title, contents, Qt::BottomDockWidgetArea, false) : nullptr;
}

void KoraRemoteCommandsPanel::OnLoginButtonClicked()
{
    if (!loginWidget->CheckLoginData()) {
        return;
    }
    pendingConnection = loginWidget->GetConnectionInfo();
    loginSession = SessionFactory::CreateSession();
    loginWidget->SetLoading(true);
    loginSession->Connect(pendingConnection, [this](const Session::Status& status) {
        if (status == Session::Connected) {
            Q_EMIT LoggedIn();
        } else {
            Q_EMIT LoginFailed();
        }
    });
}

void KoraRemoteCommandsPanel::OnLoginFailed()
{
    loginWidget->SetLoading(false);
    loginWidget->ShowError(QString::fromStdString(loginSession->GetErrorDescription()));
}

void KoraRemoteCommandsPanel::OnLoggedIn()
{
    loginWidget->SetLoading(false);
    loginSession->Disconnect(nullptr);  // the login was the test; every command logs in by itself
    connectionManager.Add(pendingConnection);
    connectionManager.SetCurrentConnection(pendingConnection);
    loginWidget->ClearPassword();
    loginStatusWidget->SetVersion("Reading...");
    loginStatusWidget->SetData(connectionManager.GetCurrentConnection());
    pages->setCurrentIndex(1);
    versionChecker.Check();
    commandManager.AddBuiltinCommands();
}

void KoraRemoteCommandsPanel::OnLogoutButtonClicked()
{
    if (commandManager.IsLoading() || versionChecker.IsChecking()) {
        QMessageBox::information(this, "Logout", "Some tasks are loading. Try again later.");
        return;
    }
    if (QMessageBox::question(this, "Logout", "Are you sure you want to log out?",
                              QMessageBox::Yes | QMessageBox::Cancel) != QMessageBox::Yes) {
        return;
    }
    loginStatusWidget->SetLoading(true);
    if (commandManager.GetCommands().empty()) {
        OnCommandTerminated();
        return;
    }
    commandManager.TerminateAll();
}

void KoraRemoteCommandsPanel::OnCommandTerminated()
{
    const auto commands = commandManager.GetCommands();
    if (!std::all_of(commands.begin(), commands.end(),
                     [](const Command* command) { return command->GetExecutionStatus() == Command::Standby; })) {
        return;
    }
    loginWidget->SetConnection(connectionManager.GetCurrentConnection());
    loginStatusWidget->Reset();
    pages->setCurrentIndex(0);
}

void KoraRemoteCommandsPanel::OnAboutToAddBuiltinCommand()
{
    loginStatusWidget->SetLoading(true);
}

void KoraRemoteCommandsPanel::OnBuiltinCommandAdded()
{
    loginStatusWidget->SetLoading(false);
}

void KoraRemoteCommandsPanel::OnReadBuiltinCommandsConfigFailed(const QString& reason)
{
    loginStatusWidget->SetLoading(false);
    RemoteLog(Orsa::LogLevel::Warn, reason.toStdString());
}

void KoraRemoteCommandsPanel::save(rviz::Config config) const
{
    rviz::Panel::save(config);
    connectionManager.Save(config);
    commandManager.Save(config.mapMakeChild("Commands"));
}

void KoraRemoteCommandsPanel::load(const rviz::Config& config)
{
    rviz::Panel::load(config);
    connectionManager.Load(config);
    commandManager.Load(config.mapGetChild("Commands"));
}

} // namespace rviz_plugin

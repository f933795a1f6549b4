#ifndef RVIZ_PLUGIN_COMMAND_WIDGET_H
#define RVIZ_PLUGIN_COMMAND_WIDGET_H

#include "remote_commands/command.h"

#include <QWidget>

#include <functional>

class QPushButton;

namespace rviz {
class PanelDockWidget;
}

namespace rviz_plugin {

class CommandManager;
class OutputWidget;

using CreateOutputPanel = std::function<rviz::PanelDockWidget*(const QString&, QWidget*)>;

// One command in the list: its name and the buttons its flags allow (launch or terminate, view the
// output, edit, remove, details). Its output goes to a docked window of its own.
class CommandWidget : public QWidget {
    Q_OBJECT
public:
    CommandWidget(Command* command, CommandManager* manager, CreateOutputPanel createPanel, QWidget* parent = nullptr);
    ~CommandWidget() override;

    void ApplyButtonFlag();
    void OnExecuteButtonClicked();
    void ShowOutput();
    OutputWidget* GetOutputWidget() const { return outputWidget; }

private:
    void OnExecutionStatusChanged(Command::ExecutionStatus status);
    void OnAboutToCheckCommandValidity();
    void OnCommandValidityChecked(bool valid);
    void OnCheckCommandValidityFailed(const QString& reason);
    void OnLaunchCommandFailed(const QString& reason);
    void OnReceivedOutput(const QString& text);
    void OnCommandNameChanged(const QString& name);
    void OpenDialog(int mode);
    static void ChangeButtonToPlaceHolder(QPushButton* button, bool shown);

    Command* command;
    CommandManager* manager;
    CreateOutputPanel createPanel;
    QPushButton* nameButton = nullptr;
    QPushButton* launchButton = nullptr;
    QPushButton* viewButton = nullptr;
    QPushButton* editButton = nullptr;
    QPushButton* removeButton = nullptr;
    QPushButton* detailsButton = nullptr;
    OutputWidget* outputWidget = nullptr;
    rviz::PanelDockWidget* outputPanel = nullptr;
};

} // namespace rviz_plugin

#endif

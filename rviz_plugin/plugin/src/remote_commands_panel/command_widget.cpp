#include "command_widget.h"

#include "command_dialog.h"
#include "output_widget.h"
#include "remote_commands/command_manager.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>

#ifndef Q_MOC_RUN
#include <rviz/panel_dock_widget.h>
#endif

namespace rviz_plugin {

namespace {
constexpr int nameWidth = 150;

QPushButton* MakeButton(const QString& text, const QString& toolTip, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setToolTip(toolTip);
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);  // a hidden button keeps its place
    button->setSizePolicy(policy);
    return button;
}
} // namespace

CommandWidget::CommandWidget(Command* shown, CommandManager* commandManager, CreateOutputPanel create,
                             QWidget* parent)
    : QWidget(parent), command(shown), manager(commandManager), createPanel(std::move(create))
{
    setObjectName("CommandWidget");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    nameButton = new QPushButton(this);
    nameButton->setFlat(true);
    nameButton->setFixedWidth(nameWidth);
    launchButton = MakeButton("Launch", "Launch", this);
    launchButton->setObjectName("CommandWidget_launch");
    viewButton = MakeButton("Output", "View the command output", this);
    viewButton->setObjectName("CommandWidget_view");
    editButton = MakeButton("Edit", "Edit", this);
    removeButton = MakeButton("Remove", "Remove", this);
    detailsButton = MakeButton("Details", "View Details", this);
    for (QPushButton* button : {nameButton, launchButton, viewButton, editButton, removeButton, detailsButton}) {
        layout->addWidget(button);
    }
    outputWidget = new OutputWidget;
    OnCommandNameChanged(command->GetName());
    ApplyButtonFlag();
    OnExecutionStatusChanged(command->GetExecutionStatus());

    connect(launchButton, &QPushButton::clicked, this, &CommandWidget::OnExecuteButtonClicked);
    connect(viewButton, &QPushButton::clicked, this, &CommandWidget::ShowOutput);
    connect(editButton, &QPushButton::clicked, this, [this]() { OpenDialog(CommandDialog::Edit); });
    connect(detailsButton, &QPushButton::clicked, this, [this]() { OpenDialog(CommandDialog::View); });
    connect(nameButton, &QPushButton::clicked, this, [this]() { OpenDialog(CommandDialog::View); });
    connect(removeButton, &QPushButton::clicked, this, [this]() { manager->RemoveCommand(command->GetName()); });
    connect(command, &Command::ExecutionStatusChanged, this, &CommandWidget::OnExecutionStatusChanged);
    connect(command, &Command::AboutToCheckCommandValidity, this, &CommandWidget::OnAboutToCheckCommandValidity);
    connect(command, &Command::CommandValidityChecked, this, &CommandWidget::OnCommandValidityChecked);
    connect(command, &Command::CheckCommandValidityFailed, this, &CommandWidget::OnCheckCommandValidityFailed);
    connect(command, &Command::LaunchCommandFailed, this, &CommandWidget::OnLaunchCommandFailed);
    connect(command, &Command::ReceivedOutput, this, &CommandWidget::OnReceivedOutput);
    connect(command, &Command::CommandNameChanged, this, &CommandWidget::OnCommandNameChanged);
}

CommandWidget::~CommandWidget()
{
    if (outputPanel != nullptr) {
        outputPanel->deleteLater();  // takes the output widget with it
    } else {
        delete outputWidget;
    }
}

void CommandWidget::ChangeButtonToPlaceHolder(QPushButton* button, bool shown)
{
    button->setVisible(shown);
}

void CommandWidget::ApplyButtonFlag()
{
    const int flags = command->GetButtonFlag();
    ChangeButtonToPlaceHolder(launchButton, (flags & Command::HasExecute) != 0);
    ChangeButtonToPlaceHolder(viewButton, (flags & Command::HasView) != 0);
    ChangeButtonToPlaceHolder(editButton, (flags & Command::HasEdit) != 0);
    ChangeButtonToPlaceHolder(removeButton, (flags & Command::HasRemove) != 0);
}

void CommandWidget::OnExecuteButtonClicked()
{
    if (command->GetExecutionStatus() == Command::Standby) {
        launchButton->setText("Launching");
        launchButton->setEnabled(false);
        command->Execute();
    } else if (command->GetExecutionStatus() == Command::Running) {
        launchButton->setText("Terminating");
        launchButton->setEnabled(false);
        command->Terminate(nullptr);
    }
}

void CommandWidget::OnExecutionStatusChanged(Command::ExecutionStatus status)
{
    launchButton->setEnabled(status == Command::Standby || status == Command::Running);
    launchButton->setText(status == Command::Running ? "Terminate" : (status == Command::Standby ? "Launch" : launchButton->text()));
}

void CommandWidget::OnAboutToCheckCommandValidity()
{
    launchButton->setEnabled(false);
    launchButton->setText("Checking command validity");
}

void CommandWidget::OnCommandValidityChecked(bool valid)
{
    launchButton->setEnabled(valid);
    launchButton->setText(valid ? "Launch" : "Unsupported command");
}

void CommandWidget::OnCheckCommandValidityFailed(const QString& reason)
{
    QMessageBox box(QMessageBox::Warning, "KORA Remote Commands",
                    QString("Failed to check \"%1\" validity").arg(command->GetName()), QMessageBox::NoButton, this);
    box.setInformativeText(reason);
    QPushButton* retry = box.addButton("Retry", QMessageBox::AcceptRole);
    box.addButton("Cancel", QMessageBox::RejectRole);
    box.exec();
    if (box.clickedButton() == retry) {
        command->CheckCommandValidity();
    }
}

void CommandWidget::OnLaunchCommandFailed(const QString& reason)
{
    launchButton->setText("Launch");
    launchButton->setEnabled(true);
    QMessageBox::warning(this, "KORA Remote Commands", reason);
}

void CommandWidget::OnReceivedOutput(const QString& text)
{
    outputWidget->OnReceivedOutput(text);
    if (outputPanel == nullptr || !outputPanel->isVisible()) {
        viewButton->setText("Output *");
    }
}

void CommandWidget::ShowOutput()
{
    if (outputPanel == nullptr && createPanel) {
        outputPanel = createPanel(QString("\"%1\" Output").arg(command->GetName()), outputWidget);
    }
    if (outputPanel != nullptr) {
        outputPanel->show();
        outputPanel->raise();
    }
    viewButton->setText("Output");
}

void CommandWidget::OnCommandNameChanged(const QString& name)
{
    nameButton->setText(QFontMetrics(nameButton->font()).elidedText(name, Qt::ElideRight, nameWidth - 10));
    nameButton->setToolTip(name);
    if (outputPanel != nullptr) {
        outputPanel->setWindowTitle(QString("\"%1\" Output").arg(name));
    }
}

void CommandWidget::OpenDialog(int mode)
{
    CommandDialog dialog(static_cast<CommandDialog::Mode>(mode), command, this);
    if (dialog.exec() != QDialog::Accepted || mode == CommandDialog::View) {
        return;
    }
    if (dialog.GetName() != command->GetName()) {
        if (manager->IsCommandNameExist(dialog.GetName())) {
            return;
        }
        command->SetName(dialog.GetName());
    }
    command->SetEditableCommand(dialog.GetCommand());
}

} // namespace rviz_plugin

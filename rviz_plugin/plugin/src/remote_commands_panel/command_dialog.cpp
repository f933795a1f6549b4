#include "command_dialog.h"

#include "remote_commands/command.h"
#include "remote_commands/command_manager.h"
#include "widgets/buttons.h"
#include "widgets/line_edit_with_warn_label.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace rviz_plugin {

CommandDialog::CommandDialog(Mode mode, const Command* command, QWidget* parent) : QDialog(parent)
{
    setObjectName("CommandDialog");
    const QString name = command != nullptr ? command->GetName() : QString();
    setWindowTitle(mode == Add ? QString("New Command") : (mode == Edit ? "Edit " + name : "View " + name));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    nameEdit = new LineEditWithWarnLabel("Input command name", this);
    commandEdit = new LineEditWithWarnLabel("Input command", this);
    nameEdit->SetCheck([](const QString& text) {
        return CommandManager::VerifyContent(text, CommandManager::GetMaxCommandNameTextLength(), false);
    });
    commandEdit->SetCheck([](const QString& text) {
        return CommandManager::VerifyContent(text, CommandManager::GetMaxCommandTextLength(), true);
    });
    form->addRow("Command Name", nameEdit);
    form->addRow("Command", commandEdit);
    layout->addLayout(form);
    description = new QLabel(this);
    description->setObjectName("CommandDialog_description");
    description->setWordWrap(true);
    description->hide();
    layout->addWidget(description);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    saveButton = new PrimaryButton("Save", this);
    saveButton->setObjectName("CommandDialog_save");
    auto* cancelButton = new SecondaryButton("Cancel", this);
    buttons->addWidget(saveButton);
    buttons->addWidget(cancelButton);
    layout->addLayout(buttons);
    connect(saveButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(nameEdit, &LineEditWithWarnLabel::WarningChanged, this, &CommandDialog::UpdateSaveButton);
    connect(commandEdit, &LineEditWithWarnLabel::WarningChanged, this, &CommandDialog::UpdateSaveButton);

    if (command != nullptr) {
        nameEdit->GetLineEdit()->setText(command->GetName());
        commandEdit->GetLineEdit()->setText(command->GetEditableCommand());
        if (command->IsBuiltinCommand()) {
            InitBuiltinCommandDescription(*command);
        }
    }
    nameEdit->GetLineEdit()->setReadOnly(mode != Add && (mode == View || command->IsBuiltinCommand()));
    commandEdit->GetLineEdit()->setReadOnly(mode == View);
    saveButton->setVisible(mode != View);
    if (mode == Add) {
        saveButton->setEnabled(false);  // nothing typed yet
    }
}

void CommandDialog::InitBuiltinCommandDescription(const Command& command)
{
    description->setText(command.GetCommandDescription() + "\n" + command.GetTemplate());
    description->show();
}

QString CommandDialog::GetName() const
{
    return nameEdit->GetLineEdit()->text();
}

QString CommandDialog::GetCommand() const
{
    return commandEdit->GetLineEdit()->text();
}

bool CommandDialog::HasAnyWarning() const
{
    return !nameEdit->GetWarning().isEmpty() || !commandEdit->GetWarning().isEmpty();
}

void CommandDialog::ShowNameExistsWarning()
{
    nameEdit->ShowWarning("Command name already exists.");
}

void CommandDialog::UpdateSaveButton()
{
    saveButton->setEnabled(!HasAnyWarning() && !GetName().isEmpty() && !GetCommand().isEmpty());
}

} // namespace rviz_plugin

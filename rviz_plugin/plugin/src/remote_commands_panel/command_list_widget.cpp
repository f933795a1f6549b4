#include "command_list_widget.h"

#include "command_dialog.h"
#include "remote_commands/command_manager.h"
#include "widgets/buttons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace rviz_plugin {

CommandListWidget::CommandListWidget(CommandManager* commandManager, CreateOutputPanel create, QWidget* parent)
    : QWidget(parent), manager(commandManager), createPanel(std::move(create))
{
    auto* layout = new QVBoxLayout(this);
    auto* header = new QHBoxLayout;
    auto* title = new QLabel("Command List", this);
    title->setObjectName("CommandListWidget_title");
    addButton = new PrimaryButton("Add", this);
    addButton->setObjectName("CommandListWidget_add");
    header->addWidget(title);
    header->addStretch(1);
    header->addWidget(addButton);
    layout->addLayout(header);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    auto* content = new QWidget(scroll);
    listLayout = new QVBoxLayout(content);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->addStretch(1);
    scroll->setWidget(content);
    layout->addWidget(scroll, 1);
    connect(addButton, &QPushButton::clicked, this, &CommandListWidget::OnAddButtonClicked);
    connect(manager, &CommandManager::CommandsChanged, this, &CommandListWidget::OnCommandsChanged);
    OnCommandsChanged();
}

void CommandListWidget::OnCommandsChanged()
{
    for (CommandWidget* widget : widgets) {
        widget->deleteLater();
    }
    widgets.clear();
    for (Command* command : manager->GetCommands()) {
        auto* widget = new CommandWidget(command, manager, createPanel, this);
        listLayout->insertWidget(listLayout->count() - 1, widget);
        widgets.push_back(widget);
    }
    const bool full = static_cast<int>(widgets.size()) >= CommandManager::GetMaxCommandSize();
    addButton->setEnabled(!full);
    addButton->setToolTip(full ? QString("The maximum number of %1 has been reached")
                                     .arg(CommandManager::GetMaxCommandSize())
                               : QString());
}

void CommandListWidget::OnAddButtonClicked()
{
    CommandDialog dialog(CommandDialog::Add, nullptr, this);
    while (dialog.exec() == QDialog::Accepted) {
        if (!manager->IsCommandNameExist(dialog.GetName())) {
            manager->AddCommand(dialog.GetName(), dialog.GetCommand(), false);
            return;
        }
        dialog.ShowNameExistsWarning();
    }
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_COMMAND_LIST_WIDGET_H
#define RVIZ_PLUGIN_COMMAND_LIST_WIDGET_H

#include "command_widget.h"

#include <QWidget>

#include <vector>

class QPushButton;
class QVBoxLayout;

namespace rviz_plugin {

// "Command List": one CommandWidget per command, and "Add" (disabled at the maximum).
class CommandListWidget : public QWidget {
    Q_OBJECT
public:
    CommandListWidget(CommandManager* manager, CreateOutputPanel createPanel, QWidget* parent = nullptr);
    void OnCommandsChanged();
    const std::vector<CommandWidget*>& GetCommandWidgets() const { return widgets; }

private:
    void OnAddButtonClicked();

    CommandManager* manager;
    CreateOutputPanel createPanel;
    QPushButton* addButton = nullptr;
    QVBoxLayout* listLayout = nullptr;
    std::vector<CommandWidget*> widgets;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_COMMAND_DIALOG_H
#define RVIZ_PLUGIN_COMMAND_DIALOG_H

#include <QDialog>

class LineEditWithWarnLabel;
class QLabel;
class QPushButton;

namespace rviz_plugin {

class Command;

// Adds ("New Command"), edits ("Edit <name>") or shows ("View <name>") a command. The name and the
// command are checked on each change; "Save" is disabled while either has a warning. A built-in
// command shows its description and only its arguments can be edited.
class CommandDialog : public QDialog {
    Q_OBJECT
public:
    enum Mode { Add, Edit, View };
    CommandDialog(Mode mode, const Command* command, QWidget* parent = nullptr);

    QString GetName() const;
    QString GetCommand() const;
    bool HasAnyWarning() const;
    void ShowNameExistsWarning();

private:
    void InitBuiltinCommandDescription(const Command& command);
    void UpdateSaveButton();

    LineEditWithWarnLabel* nameEdit = nullptr;
    LineEditWithWarnLabel* commandEdit = nullptr;
    QLabel* description = nullptr;
    QPushButton* saveButton = nullptr;
};

} // namespace rviz_plugin

#endif

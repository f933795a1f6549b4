#ifndef RVIZ_PLUGIN_TOPIC_RENAME_DIALOG_H
#define RVIZ_PLUGIN_TOPIC_RENAME_DIALOG_H

#include "kora_vision_logic/camera_alias.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace rviz_plugin {

class RenameTableDelegate;
class RenameTableModel;
class RenameTableView;

// "Set Name": the camera topics of the master and their custom names. "Save" is disabled while a name
// is too long or used twice; saving writes the alias file and tells the wall (NamesSaved).
class TopicRenameDialog : public QDialog {
    Q_OBJECT
public:
    explicit TopicRenameDialog(QWidget* parent = nullptr);

    void Initialize();
    // Reads the file and the master's cameras into the table.
    void InitDisplayData();
    void SaveAction();
    RenameTableModel* GetModel() const { return model; }
    RenameTableDelegate* GetDelegate() const { return delegate; }

Q_SIGNALS:
    void NamesSaved();

private:
    void SetDescription();
    // The table's header ("Topics", "Custom Name") comes from the model.
    void SetTopicTableView();
    void InitConnection();
    void UpdateTableView();
    void SetSaveButtonStatus(const RowWarnings& warnings);

    QLabel* description = nullptr;
    RenameTableView* tableView = nullptr;
    RenameTableModel* model = nullptr;
    RenameTableDelegate* delegate = nullptr;
    QLabel* warningLabel = nullptr;
    QPushButton* saveButton = nullptr;
    QPushButton* cancelButton = nullptr;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_RENAME_TABLE_DELEGATE_H
#define RVIZ_PLUGIN_RENAME_TABLE_DELEGATE_H

#include "kora_vision_logic/camera_alias.h"

#include <QStyledItemDelegate>

class ComboBoxWithVerification;

namespace rviz_plugin {

class RenameTableModel;

// Edits a custom name in a combo box of the default names that also takes free text, checked on each
// change for its length and for a name another row already has.
class RenameTableDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    RenameTableDelegate(RenameTableModel* model, QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    // Starts the book-keeping again from the model's names.
    void ClearWarningRecord();
    // The first warning of text in the row, or "".
    QString ValidateInputText(const QString& text, const QModelIndex& index);
    const RowWarnings& GetWarnings() const { return warnings; }

Q_SIGNALS:
    void DuplicateWarningInfo(const RowWarnings& warnings);

private:
    void InitEditorComboBox(ComboBoxWithVerification* editor) const;

    RenameTableModel* model;
    RowWarnings warnings;
    NameRows duplicates;
};

} // namespace rviz_plugin

#endif

#include "rename_table_delegate.h"

#include "rename_table_model.h"
#include "widgets/combo_box_with_verification.h"

namespace rviz_plugin {

RenameTableDelegate::RenameTableDelegate(RenameTableModel* tableModel, QObject* parent)
    : QStyledItemDelegate(parent), model(tableModel)
{
}

QWidget* RenameTableDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                           const QModelIndex& index) const
{
    auto* editor = new ComboBoxWithVerification(parent);
    InitEditorComboBox(editor);
    auto* self = const_cast<RenameTableDelegate*>(this);  // the check updates the book-keeping
    editor->SetVerification([self, index](const QString& text) { return self->ValidateInputText(text, index); });
    return editor;
}

void RenameTableDelegate::InitEditorComboBox(ComboBoxWithVerification* editor) const
{
    editor->addItems(model->GetDefaultAlias());
}

void RenameTableDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (auto* box = qobject_cast<ComboBoxWithVerification*>(editor)) {
        box->setEditText(index.data(Qt::EditRole).toString());
    }
}

void RenameTableDelegate::setModelData(QWidget* editor, QAbstractItemModel* itemModel, const QModelIndex& index) const
{
    if (auto* box = qobject_cast<ComboBoxWithVerification*>(editor)) {
        itemModel->setData(index, box->currentText(), Qt::EditRole);
    }
}

void RenameTableDelegate::ClearWarningRecord()
{
    warnings.clear();
    duplicates.clear();
    for (int row = 0; row < model->rowCount(); ++row) {
        RecordCurrentItemDuplicateName(row, model->GetName(row), warnings, duplicates);
    }
    RefreshDuplicateNameRecord(warnings, duplicates);
    Q_EMIT DuplicateWarningInfo(warnings);
}

QString RenameTableDelegate::ValidateInputText(const QString& text, const QModelIndex& index)
{
    const int row = index.row();
    const std::string name = text.toStdString();
    warnings.erase(row);
    const std::string length = VerifyLengthValidity(name);
    if (!length.empty()) {
        warnings[row] = length;
    }
    model->VerifyDuplicateNameValidity(row, name, warnings, duplicates);
    if (!length.empty()) {
        warnings[row] = length;  // the first warning of the row
    }
    Q_EMIT DuplicateWarningInfo(warnings);
    const auto warning = warnings.find(row);
    return warning != warnings.end() ? QString::fromStdString(warning->second) : QString();
}

} // namespace rviz_plugin

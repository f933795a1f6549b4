#include "classification_table_property.h"

#include "classification_setting_editor.h"

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#include <rviz/properties/property_tree_model.h>
#endif

namespace rviz_plugin {

namespace {
const char* const settingKey = "Classification Setting";
const char* const rowKeyPrefix = "Classification ";
const char* const addHint = "Click here to show the Add button";
} // namespace

ClassificationTableProperty::ClassificationTableProperty(const QString& description, int maxRows,
                                                         rviz::Property* parent)
    : rviz::Property(settingKey, 0, description, parent), maxRowCount(maxRows)
{
}

void ClassificationTableProperty::SetName()
{
    rviz::Property::setValue(GetRowCount());
    if (model_ != nullptr) {
        model_->emitDataChanged(this);
    }
}

QVariant ClassificationTableProperty::getViewData(int column, int role) const
{
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        return column == 0 ? QVariant(QString("%1 (%2)").arg(settingKey).arg(GetRowCount())) : QVariant(addHint);
    }
    return rviz::Property::getViewData(column, role);
}

bool ClassificationTableProperty::setValue(const QVariant& /*value*/)
{
    return false;  // the value cell is a button; the count follows the rows
}

QWidget* ClassificationTableProperty::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/)
{
    auto* editor = new ClassificationSettingEditor(canAdd && GetRowCount() < maxRowCount, parent);
    connect(editor, &QPushButton::clicked, this, &ClassificationTableProperty::OnAddButtonClick);
    connect(this, &ClassificationTableProperty::changed, editor,
            [this, editor]() { editor->setEnabled(canAdd && GetRowCount() < maxRowCount); });
    return editor;
}

void ClassificationTableProperty::OnAddButtonClick()
{
    if (GetRowCount() >= maxRowCount) {
        canAdd = false;
        Q_EMIT changed();
        return;
    }
    AddNewRow();
    SetName();
    expand();
    Q_EMIT changed();
}

void ClassificationTableProperty::OnDeletedClassification(unsigned value)
{
    auto* row = qobject_cast<rviz::Property*>(sender());
    if (row == nullptr || row->getParent() != this) {
        return;
    }
    // The row is inside its own signal: take it out of the tree now, free it afterwards.
    takeChildAt(row->rowNumberInParent());
    row->deleteLater();
    EraseEntry(value);
    canAdd = true;
    SetName();
    Q_EMIT changed();
}

void ClassificationTableProperty::ClearSettingClassificationItems()
{
    removeChildren();
    canAdd = true;
    ClearTable();
    SetName();
}

void ClassificationTableProperty::save(rviz::Config config) const
{
    config.mapSetValue("Value", GetRowCount());
    for (int i = 0; i < numChildren(); ++i) {
        childAt(i)->save(config.mapMakeChild(QString("%1%2").arg(rowKeyPrefix).arg(i + 1)));
    }
}

void ClassificationTableProperty::load(const rviz::Config& config)
{
    if (!config.isValid()) {
        return;
    }
    ClearSettingClassificationItems();
    for (int i = 1; i <= maxRowCount; ++i) {
        const rviz::Config saved = config.mapGetChild(QString("%1%2").arg(rowKeyPrefix).arg(i));
        if (!saved.isValid()) {
            break;
        }
        AddPlaceholderRow()->load(saved);
    }
    // A loaded row first held a placeholder value: write all entries again, in row order.
    RewriteTable();
    SetName();
}

} // namespace rviz_plugin

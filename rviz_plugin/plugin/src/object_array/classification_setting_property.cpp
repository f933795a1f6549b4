#include "classification_setting_property.h"

#include "classification_property.h"

#include "classification_editors/classification_setting_editor.h"

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#include <rviz/properties/property_tree_model.h>
#endif

namespace rviz_plugin {

namespace {
const char* const settingKey = "Classification Setting";
const char* const rowKeyPrefix = "Classification ";
const char* const addHint = "Click here to show the Add button";
constexpr unsigned newRowValue = 255;
} // namespace

ClassificationSettingProperty::ClassificationSettingProperty(ObjectArraySettings& objectSettings,
                                                             rviz::Property* parent)
    : rviz::Property(settingKey, 0,
                     "Allows users to set the text and colors of the cuboid and polygon that draw an object, which "
                     "correspond to Value under Classification. To create a Classification record, click Add. A "
                     "maximum of 255 records can be configured.",
                     parent),
      settings(objectSettings)
{
}

void ClassificationSettingProperty::InitDefaultValue()
{
    ClearSettingClassificationItems();
    for (const auto& entry : ObjectArraySettings::DefaultClassifications()) {
        AddClassificationItem(static_cast<unsigned>(entry.first), entry.second);
    }
    SetName();
}

ClassificationProperty* ClassificationSettingProperty::GetRow(int index) const
{
    return qobject_cast<ClassificationProperty*>(childAt(index));
}

ClassificationProperty* ClassificationSettingProperty::AddClassificationItem(unsigned value,
                                                                             const ObjectClassification& record)
{
    auto* row = new ClassificationProperty(settings);
    addChild(row);
    row->Initialize(value, record);
    connect(row, &ClassificationProperty::DeletedClassification, this,
            &ClassificationSettingProperty::OnDeletedClassification);
    connect(row, &ClassificationProperty::RecordChanged, this, &ClassificationSettingProperty::ClassificationChanged);
    return row;
}

void ClassificationSettingProperty::ClearSettingClassificationItems()
{
    removeChildren();
    settings.classifications.clear();
    SetName();
}

void ClassificationSettingProperty::SetName()
{
    rviz::Property::setValue(numChildren());
    if (model_ != nullptr) {
        model_->emitDataChanged(this);
    }
}

QVariant ClassificationSettingProperty::getViewData(int column, int role) const
{
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        return column == 0 ? QVariant(QString("%1 (%2)").arg(settingKey).arg(numChildren())) : QVariant(addHint);
    }
    return rviz::Property::getViewData(column, role);
}

bool ClassificationSettingProperty::setValue(const QVariant& /*value*/)
{
    return false;  // the value cell is a button; the count follows the rows
}

QWidget* ClassificationSettingProperty::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/)
{
    auto* editor = new ClassificationSettingEditor(numChildren() < maxRowCount, parent);
    connect(editor, &QPushButton::clicked, this, &ClassificationSettingProperty::OnAddButtonClick);
    connect(this, &ClassificationSettingProperty::ClassificationChanged, editor,
            [this, editor]() { editor->setEnabled(numChildren() < maxRowCount); });
    return editor;
}

void ClassificationSettingProperty::OnAddButtonClick()
{
    if (numChildren() >= maxRowCount) {
        return;
    }
    AddClassificationItem(newRowValue, ObjectArraySettings::NewClassification(
                                           newRowValue, QString("%1%2").arg("Classification").arg(newRowValue)));
    SetName();
    expand();
    Q_EMIT ClassificationChanged();
}

void ClassificationSettingProperty::OnDeletedClassification(unsigned value)
{
    auto* row = qobject_cast<ClassificationProperty*>(sender());
    if (row == nullptr || row->getParent() != this) {
        return;
    }
    settings.classifications.erase(static_cast<int>(value));
    takeChildAt(row->rowNumberInParent());
    row->deleteLater();
    // Another row with the same value keeps its record.
    for (int i = 0; i < numChildren(); ++i) {
        if (GetRow(i)->GetClassificationValue() == value) {
            GetRow(i)->WriteRecord();
        }
    }
    SetName();
    Q_EMIT ClassificationChanged();
}

void ClassificationSettingProperty::save(rviz::Config config) const
{
    config.mapSetValue("Value", numChildren());
    for (int i = 0; i < numChildren(); ++i) {
        childAt(i)->save(config.mapMakeChild(QString("%1%2").arg(rowKeyPrefix).arg(i + 1)));
    }
}

void ClassificationSettingProperty::load(const rviz::Config& config)
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
        AddClassificationItem(0, ObjectArraySettings::NewClassification(0, QString()))->load(saved);
    }
    // A loaded row first held a placeholder value: write all records again, in row order.
    settings.classifications.clear();
    for (int i = 0; i < numChildren(); ++i) {
        GetRow(i)->WriteRecord();
    }
    SetName();
}

} // namespace rviz_plugin

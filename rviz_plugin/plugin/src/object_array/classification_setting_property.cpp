#include "classification_setting_property.h"

#include "classification_property.h"

namespace rviz_plugin {

namespace {
constexpr unsigned newRowValue = 255;
} // namespace

ClassificationSettingProperty::ClassificationSettingProperty(ObjectArraySettings& objectSettings,
                                                             rviz::Property* parent)
    : ClassificationTableProperty(
          "Allows users to set the text and colors of the cuboid and polygon that draw an object, which correspond to "
          "Value under Classification. To create a Classification record, click Add. A maximum of 255 records can be "
          "configured.",
          maxRowCount, parent),
      settings(objectSettings)
{
    // Rows added, deleted or loaded.
    connect(this, &rviz::Property::changed, this, &ClassificationSettingProperty::ClassificationChanged);
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

void ClassificationSettingProperty::AddNewRow()
{
    AddClassificationItem(newRowValue, ObjectArraySettings::NewClassification(
                                           newRowValue, QString("%1%2").arg("Classification").arg(newRowValue)));
}

rviz::Property* ClassificationSettingProperty::AddPlaceholderRow()
{
    return AddClassificationItem(0, ObjectArraySettings::NewClassification(0, QString()));
}

void ClassificationSettingProperty::ClearTable()
{
    settings.classifications.clear();
}

void ClassificationSettingProperty::RewriteTable()
{
    settings.classifications.clear();
    for (int i = 0; i < GetRowCount(); ++i) {
        GetRow(i)->WriteRecord();
    }
}

void ClassificationSettingProperty::EraseEntry(unsigned value)
{
    settings.classifications.erase(static_cast<int>(value));
    // Another row with the same value keeps its record.
    for (int i = 0; i < GetRowCount(); ++i) {
        if (GetRow(i)->GetClassificationValue() == value) {
            GetRow(i)->WriteRecord();
        }
    }
}

} // namespace rviz_plugin

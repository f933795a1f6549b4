#ifndef RVIZ_PLUGIN_CLASSIFICATION_SETTING_PROPERTY_H
#define RVIZ_PLUGIN_CLASSIFICATION_SETTING_PROPERTY_H

#include "scene_3d_logic/object_array_settings.h"

#include "classification_editors/classification_table_property.h"

namespace rviz_plugin {

class ClassificationProperty;

// "Classification Setting" of the 3D objects: its rows write the display's classification table. At most 255
// rows.
class ClassificationSettingProperty : public ClassificationTableProperty {
    Q_OBJECT
public:
    static constexpr int maxRowCount = static_cast<int>(ObjectArraySettings::maxClassificationRecords);

    ClassificationSettingProperty(ObjectArraySettings& settings, rviz::Property* parent = nullptr);

    // The table's default records as rows.
    void InitDefaultValue();
    ClassificationProperty* GetRow(int index) const;
    ClassificationProperty* AddClassificationItem(unsigned value, const ObjectClassification& record);

Q_SIGNALS:
    // A row or a record changed: what the objects look like.
    void ClassificationChanged();

protected:
    void AddNewRow() override;
    rviz::Property* AddPlaceholderRow() override;
    void ClearTable() override;
    void RewriteTable() override;
    void EraseEntry(unsigned value) override;

private:
    ObjectArraySettings& settings;
};

} // namespace rviz_plugin

#endif

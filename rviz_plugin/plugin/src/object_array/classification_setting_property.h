#ifndef RVIZ_PLUGIN_CLASSIFICATION_SETTING_PROPERTY_H
#define RVIZ_PLUGIN_CLASSIFICATION_SETTING_PROPERTY_H

#include "scene_3d_logic/object_array_settings.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/property.h>
#endif

namespace rviz_plugin {

class ClassificationProperty;

// "Classification Setting" of the 3D objects: its rows, with an add button in the value cell. It shows
// "Classification Setting (n)" and is saved under "Classification Setting" whatever n is. At most 255
// rows.
class ClassificationSettingProperty : public rviz::Property {
    Q_OBJECT
public:
    static constexpr int maxRowCount = static_cast<int>(ObjectArraySettings::maxClassificationRecords);

    ClassificationSettingProperty(ObjectArraySettings& settings, rviz::Property* parent = nullptr);

    // The table's default records as rows.
    void InitDefaultValue();
    void ClearSettingClassificationItems();
    int GetRowCount() const { return numChildren(); }
    ClassificationProperty* GetRow(int index) const;
    ClassificationProperty* AddClassificationItem(unsigned value, const ObjectClassification& record);

    QVariant getViewData(int column, int role) const override;
    bool setValue(const QVariant& value) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option) override;
    void save(rviz::Config config) const override;
    void load(const rviz::Config& config) override;

Q_SIGNALS:
    void ClassificationChanged();

public Q_SLOTS:
    void OnAddButtonClick();

private Q_SLOTS:
    void OnDeletedClassification(unsigned value);

private:
    void SetName();

    ObjectArraySettings& settings;
};

} // namespace rviz_plugin

#endif

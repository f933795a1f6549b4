#ifndef RVIZ_PLUGIN_CLASSIFICATION_PROPERTY_H
#define RVIZ_PLUGIN_CLASSIFICATION_PROPERTY_H

#include "scene_3d_logic/object_array_settings.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/property.h>
#endif

namespace rviz {
class ColorProperty;
class FloatProperty;
class StringProperty;
} // namespace rviz

namespace rviz_plugin {

class ClassificationValueProperty;

// One "Classification" row of the 3D objects: the class value, its text, the cuboid and polygon
// colours and the cuboid's alpha. Every change is written into the display's table at once; the
// row's value column shows "value, text", which may be typed over.
class ClassificationProperty : public rviz::Property {
    Q_OBJECT
public:
    ClassificationProperty(ObjectArraySettings& settings, rviz::Property* parent = nullptr);

    void Initialize(unsigned value, const ObjectClassification& record);
    unsigned GetClassificationValue() const { return currentValue; }
    // Writes the row's record into the table.
    void WriteRecord();

    bool setValue(const QVariant& value) override;
    void save(rviz::Config config) const override;
    void load(const rviz::Config& config) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option) override;

Q_SIGNALS:
    void DeletedClassification(unsigned value);
    void RecordChanged();

private Q_SLOTS:
    void OnChildChanged();

private:
    void ReplaceRecord(unsigned oldValue);
    void ShowSummary();

    ObjectArraySettings& settings;
    ClassificationValueProperty* valueProperty = nullptr;
    rviz::StringProperty* textProperty = nullptr;
    rviz::ColorProperty* cuboidColorProperty = nullptr;
    rviz::ColorProperty* polygonColorProperty = nullptr;
    rviz::FloatProperty* alphaProperty = nullptr;
    unsigned currentValue = 0;
    bool updating = false;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_CLASSIFICATION_PROPERTY_H
#define RVIZ_PLUGIN_CLASSIFICATION_PROPERTY_H

#include "scene_3d_logic/object_array_settings.h"

#include "classification_editors/classification_row_property.h"

namespace rviz {
class ColorProperty;
class FloatProperty;
class StringProperty;
} // namespace rviz

namespace rviz_plugin {

// One "Classification" row of the 3D objects: the class value, its text, the cuboid and polygon
// colours and the cuboid's alpha. Every change is written into the display's table at once; the
// row's value column shows "value, text", which may be typed over.
class ClassificationProperty : public ClassificationRowProperty {
    Q_OBJECT
public:
    ClassificationProperty(ObjectArraySettings& settings, rviz::Property* parent = nullptr);

    void Initialize(unsigned value, const ObjectClassification& record);
    // Writes the row's record into the table.
    void WriteRecord();

    bool setValue(const QVariant& value) override;

Q_SIGNALS:
    void RecordChanged();

private Q_SLOTS:
    void OnChildChanged();

private:
    void ReplaceEntry(unsigned oldValue) override;
    void ShowSummary();

    ObjectArraySettings& settings;
    rviz::StringProperty* textProperty = nullptr;
    rviz::ColorProperty* cuboidColorProperty = nullptr;
    rviz::ColorProperty* polygonColorProperty = nullptr;
    rviz::FloatProperty* alphaProperty = nullptr;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_OBJECT_INFO_PROPERTY_H
#define RVIZ_PLUGIN_OBJECT_INFO_PROPERTY_H

#include "scene_3d_logic/object_array_settings.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/bool_property.h>
#endif

#include <vector>

namespace rviz {
class ColorProperty;
class FloatProperty;
} // namespace rviz

namespace rviz_plugin {

// "Object Info": whether the objects' texts are drawn, their size and colour, and which lines they
// hold. Every change is copied into the settings and announced by InfoChanged.
class ObjectInfoProperty : public rviz::BoolProperty {
    Q_OBJECT
public:
    ObjectInfoProperty(ObjectArraySettings& settings, rviz::Property* parent);

    // Copies every child into the settings.
    void UpdateSettings();

Q_SIGNALS:
    void InfoChanged();

private Q_SLOTS:
    void OnChanged();

private:
    ObjectArraySettings& settings;
    rviz::FloatProperty* textScaleProperty;
    rviz::ColorProperty* textColorProperty;
    std::vector<std::pair<rviz::BoolProperty*, bool ObjectArraySettings::*>> lines;
};

} // namespace rviz_plugin

#endif

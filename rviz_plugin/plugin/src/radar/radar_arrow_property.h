#ifndef RVIZ_PLUGIN_RADAR_ARROW_PROPERTY_H
#define RVIZ_PLUGIN_RADAR_ARROW_PROPERTY_H

#include "scene_3d_logic/radar_settings.h"

#include <QObject>

namespace rviz {
class BoolProperty;
class ColorProperty;
class FloatProperty;
class VectorProperty;
} // namespace rviz

namespace rviz_plugin {

// The "Arrow Color" (with its "Arrow Alpha") and "Arrow Scale" children of an arrow switch such as
// "Velocity". They are disabled while the switch is off; the scale is held to 0 to 3. Every change is
// copied into the arrow settings and announced by ArrowChanged.
class RadarArrowProperty : public QObject {
    Q_OBJECT
public:
    RadarArrowProperty(rviz::BoolProperty* parent, RadarArrowSettings& arrow);

Q_SIGNALS:
    void ArrowChanged();

private Q_SLOTS:
    void OnChanged();

private:
    rviz::BoolProperty* parent;
    RadarArrowSettings& arrow;
    rviz::ColorProperty* colorProperty;
    rviz::FloatProperty* alphaProperty;
    rviz::VectorProperty* scaleProperty;
};

} // namespace rviz_plugin

#endif

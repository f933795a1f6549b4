#ifndef RVIZ_PLUGIN_RADAR_DETECT_DISPLAY_H
#define RVIZ_PLUGIN_RADAR_DETECT_DISPLAY_H

#include "radar_detect_visual.h"
#include "radar_display.h"

#include "scene_3d_logic/radar_settings.h"

#include <custom/RadarDetectArray.h>

namespace rviz {
class BoolProperty;
class ColorProperty;
class EnumProperty;
class FloatProperty;
} // namespace rviz

namespace rviz_plugin {

class RadarArrowProperty;

// The points of a radar working in detection mode, in the 3D view and, when asked, in a table.
class RadarDetectDisplay
    : public RadarDisplay<custom::RadarDetectArray, RadarDetectSettings, RadarDetectVisual> {
    Q_OBJECT
public:
    RadarDetectDisplay();

protected:
    void onInitialize() override;
    void InitializeTable(RadarInfoWidget& table) override;

private Q_SLOTS:
    void OnPointPropertyChanged();
    void OnVelocityPropertyChanged();

private:
    void InitProperties();

    rviz::EnumProperty* pointTypeProperty = nullptr;
    rviz::ColorProperty* pointColorProperty = nullptr;
    rviz::FloatProperty* pointAlphaProperty = nullptr;
    rviz::FloatProperty* pointSizeProperty = nullptr;
    rviz::BoolProperty* velocityProperty = nullptr;
    RadarArrowProperty* arrowProperty = nullptr;
};

} // namespace rviz_plugin

#endif

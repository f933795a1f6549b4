#ifndef RVIZ_PLUGIN_RADAR_TRACK_DISPLAY_H
#define RVIZ_PLUGIN_RADAR_TRACK_DISPLAY_H

#include "radar_display.h"
#include "radar_track_visual.h"

#include "scene_3d_logic/radar_settings.h"

#include <custom/RadarTrackArray.h>

namespace rviz {
class BoolProperty;
class ColorProperty;
class FloatProperty;
} // namespace rviz

namespace rviz_plugin {

class RadarArrowProperty;

// The tracks of a radar working in track mode, in the 3D view and, when asked, in a table.
class RadarTrackDisplay : public RadarDisplay<custom::RadarTrackArray, RadarTrackSettings, RadarTrackVisual> {
    Q_OBJECT
public:
    RadarTrackDisplay();

protected:
    void onInitialize() override;
    void InitializeTable(RadarInfoWidget& table) override;

private Q_SLOTS:
    void OnPolygonPropertyChanged();
    void OnArrowPropertyChanged();

private:
    void InitProperties();
    void InitPolygonProperties();
    void InitVelocityProperties();
    void InitAccelerationProperties();
    void InitPanelAndInfoProperties();

    rviz::ColorProperty* polygonColorProperty = nullptr;
    rviz::FloatProperty* polygonAlphaProperty = nullptr;
    rviz::FloatProperty* edgeWidthProperty = nullptr;
    rviz::BoolProperty* velocityProperty = nullptr;
    rviz::BoolProperty* accelerationProperty = nullptr;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_RADAR_TRACK_DISPLAY_H
#define RVIZ_PLUGIN_RADAR_TRACK_DISPLAY_H

#include "radar_display.h"

#include "scene_3d_logic/radar_settings.h"

#include <custom/RadarTrackArray.h>

#include <memory>

namespace rviz {
class BoolProperty;
class ColorProperty;
class FloatProperty;
} // namespace rviz

namespace rviz_plugin {

class RadarArrowProperty;
class RadarInfoProperty;
class RadarTrackVisual;

// The tracks of a radar working in track mode, in the 3D view and, when asked, in a table.
class RadarTrackDisplay : public RadarDisplay<custom::RadarTrackArray> {
    Q_OBJECT
public:
    RadarTrackDisplay();
    ~RadarTrackDisplay() override;

    const RadarTrackSettings& Settings() const { return settings; }
    RadarTrackVisual* Visual() const { return visual.get(); }

protected:
    void onInitialize() override;
    void reset() override;
    void updateTopic() override;
    void ShowMsgInPanel(const custom::RadarTrackArray::ConstPtr& message) override;
    void ShowMsgInVisual(const custom::RadarTrackArray::ConstPtr& message) override;
    bool DetailPanelShown() const override { return settings.detailPanelShown; }

private Q_SLOTS:
    void OnPolygonPropertyChanged();
    void OnArrowPropertyChanged();
    void OnDetailPanelPropertyChanged();
    void OnInfoPropertyChanged();
    void OnRadarPanelClosed();

private:
    void InitProperties();
    void InitPolygonProperties();
    void InitVelocityProperties();
    void InitAccelerationProperties();
    void InitDetailPanelProperties();
    void InitInfoProperties();
    void SetName();

    RadarTrackSettings settings;
    std::unique_ptr<RadarTrackVisual> visual;
    rviz::ColorProperty* polygonColorProperty = nullptr;
    rviz::FloatProperty* polygonAlphaProperty = nullptr;
    rviz::FloatProperty* edgeWidthProperty = nullptr;
    rviz::BoolProperty* velocityProperty = nullptr;
    rviz::BoolProperty* accelerationProperty = nullptr;
    rviz::BoolProperty* detailPanelProperty = nullptr;
    RadarInfoProperty* infoProperty = nullptr;
};

} // namespace rviz_plugin

#endif

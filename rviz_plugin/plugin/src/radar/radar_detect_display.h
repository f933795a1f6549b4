#ifndef RVIZ_PLUGIN_RADAR_DETECT_DISPLAY_H
#define RVIZ_PLUGIN_RADAR_DETECT_DISPLAY_H

#include "radar_display.h"

#include "scene_3d_logic/radar_settings.h"

#include <custom/RadarDetectArray.h>

#include <memory>

namespace rviz {
class BoolProperty;
class ColorProperty;
class EnumProperty;
class FloatProperty;
} // namespace rviz

namespace rviz_plugin {

class RadarArrowProperty;
class RadarDetectVisual;
class RadarInfoProperty;

// The points of a radar working in detection mode, in the 3D view and, when asked, in a table.
class RadarDetectDisplay : public RadarDisplay<custom::RadarDetectArray> {
    Q_OBJECT
public:
    RadarDetectDisplay();
    ~RadarDetectDisplay() override;

    const RadarDetectSettings& Settings() const { return settings; }
    RadarDetectVisual* Visual() const { return visual.get(); }

protected:
    void onInitialize() override;
    void reset() override;
    void updateTopic() override;
    void ShowMsgInPanel(const custom::RadarDetectArray::ConstPtr& message) override;
    void ShowMsgInVisual(const custom::RadarDetectArray::ConstPtr& message) override;
    bool DetailPanelShown() const override { return settings.detailPanelShown; }

private Q_SLOTS:
    void OnPointPropertyChanged();
    void OnVelocityPropertyChanged();
    void OnDetailPanelPropertyChanged();
    void OnInfoPropertyChanged();
    void OnRadarPanelClosed();

private:
    void InitProperties();
    void SetName();

    RadarDetectSettings settings;
    std::unique_ptr<RadarDetectVisual> visual;
    rviz::EnumProperty* pointTypeProperty = nullptr;
    rviz::ColorProperty* pointColorProperty = nullptr;
    rviz::FloatProperty* pointAlphaProperty = nullptr;
    rviz::FloatProperty* pointSizeProperty = nullptr;
    rviz::BoolProperty* velocityProperty = nullptr;
    RadarArrowProperty* arrowProperty = nullptr;
    rviz::BoolProperty* detailPanelProperty = nullptr;
    RadarInfoProperty* infoProperty = nullptr;
};

} // namespace rviz_plugin

#endif

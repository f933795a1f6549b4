#ifndef RVIZ_PLUGIN_RADAR_SETTINGS_H
#define RVIZ_PLUGIN_RADAR_SETTINGS_H

#include <QColor>
#include <QString>

#include <array>
#include <vector>

namespace rviz_plugin {

// An arrow's look: colour (its alpha the arrow's) and the three scales.
struct RadarArrowSettings {
    QColor color;
    std::array<float, 3> scale;
};

// Settings of the detection display, shared with its visual.
struct RadarDetectSettings {
    static constexpr unsigned maxPoints = 250;
    // Names of the fields the 3D text can show, in the order of their properties.
    static const std::vector<QString>& InfoFieldNames();

    QColor textColor = QColor(255, 255, 255, 255);
    int pointType = 2;  // SPHERE; 1 is CUBE
    QColor pointColor = QColor(77, 220, 74, 255);
    RadarArrowSettings velocityArrow{QColor(255, 255, 255, 102), {0.3F, 0.3F, 0.3F}};
    float textScale = 1.0F;
    float pointScale = 0.3F;
    bool velocityShown = false;
    bool infoShown = false;
    bool detailPanelShown = false;
    std::vector<bool> infoFields = std::vector<bool>{false, true, true, false, false, false,
                                                     false, false, false, false, false, false};
};

// Settings of the track display, shared with its visual.
struct RadarTrackSettings {
    static constexpr unsigned maxTracks = 100;
    static const std::vector<QString>& InfoFieldNames();

    QColor textColor = QColor(255, 255, 255, 255);
    QColor polygonColor = QColor(29, 161, 243, 255);
    float edgeWidth = 0.1F;
    RadarArrowSettings velocityArrow{QColor(255, 255, 255, 102), {0.3F, 0.3F, 0.3F}};
    RadarArrowSettings accelerationArrow{QColor(249, 255, 22, 128), {1.0F, 0.3F, 0.3F}};
    float textScale = 1.0F;
    bool velocityShown = true;
    bool accelerationShown = false;
    bool infoShown = true;
    bool detailPanelShown = false;
    std::vector<bool> infoFields = std::vector<bool>{false, false, true, true, false, false, false,
                                                     false, false, false, false, false, false, false,
                                                     false, false, false, false, false, false};
};

// At most this many info fields can be ticked at once.
constexpr int maxTickedInfoFields = 3;

} // namespace rviz_plugin

#endif

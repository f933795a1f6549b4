#ifndef RVIZ_PLUGIN_RADAR_DETECT_VISUAL_H
#define RVIZ_PLUGIN_RADAR_DETECT_VISUAL_H

#include "radar_visual.h"

#include "scene_3d_logic/radar_settings.h"

#include <custom/RadarDetectArray.h>

namespace rviz_plugin {

// The detections of a radar in the 3D view: a sphere or box per point that passed its checks, with an
// optional velocity arrow and text. 250 markers of each kind are made once and reused.
class RadarDetectVisual : public RadarVisual {
    Q_OBJECT
public:
    explicit RadarDetectVisual(const RadarDetectSettings& settings);
    ~RadarDetectVisual() override;

    void Init(rviz::DisplayContext* context, Ogre::SceneNode* sceneNode) override;
    void SetMessage(const custom::RadarDetectArray::ConstPtr& message);
    std::size_t PassedCount() const { return passedIndices.size(); }

protected:
    void InitMarkers() override;

private:
    void CheckInvalidData(const custom::RadarDetectArray& message);
    void RenderPoint(const custom::RadarDetectArray& message);
    void RenderInfo(const custom::RadarDetectArray& message);
    void RenderVelocity(const custom::RadarDetectArray& message);

    const RadarDetectSettings& settings;
    Ogre::SceneNode* pointNode = nullptr;
    Ogre::SceneNode* infoNode = nullptr;
    Ogre::SceneNode* velocityNode = nullptr;
    MarkerSet points;
    MarkerSet infos;
    MarkerSet velocities;
};

} // namespace rviz_plugin

#endif

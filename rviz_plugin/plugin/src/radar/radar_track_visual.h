#ifndef RVIZ_PLUGIN_RADAR_TRACK_VISUAL_H
#define RVIZ_PLUGIN_RADAR_TRACK_VISUAL_H

#include "radar_visual.h"

#include "scene_3d_logic/radar_settings.h"

#include <custom/RadarTrackArray.h>

namespace rviz_plugin {

// The tracks of a radar in the 3D view: a wire box per track that passed its checks, a velocity and an
// acceleration arrow and a text. 100 markers of each kind are made once and reused.
class RadarTrackVisual : public RadarVisual {
    Q_OBJECT
public:
    explicit RadarTrackVisual(const RadarTrackSettings& settings);
    ~RadarTrackVisual() override;

    void Init(rviz::DisplayContext* context, Ogre::SceneNode* sceneNode) override;
    void SetMessage(const custom::RadarTrackArray::ConstPtr& message);
    std::size_t PassedCount() const { return passedIndices.size(); }

protected:
    void InitMarkers() override;

private:
    void CheckInvalidData(const custom::RadarTrackArray& message);
    void RenderPolygon(const custom::RadarTrackArray& message);
    void RenderInfo(const custom::RadarTrackArray& message);
    void RenderVelocity(const custom::RadarTrackArray& message);
    void RenderAcceleration(const custom::RadarTrackArray& message);

    const RadarTrackSettings& settings;
    Ogre::SceneNode* velocityNode = nullptr;
    Ogre::SceneNode* accelerationNode = nullptr;
    Ogre::SceneNode* polygonNode = nullptr;
    Ogre::SceneNode* infoNode = nullptr;
    MarkerSet polygons;
    MarkerSet infos;
    MarkerSet velocities;
    MarkerSet accelerations;
};

} // namespace rviz_plugin

#endif

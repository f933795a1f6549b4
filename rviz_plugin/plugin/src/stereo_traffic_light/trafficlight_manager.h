#ifndef RVIZ_PLUGIN_TRAFFICLIGHT_MANAGER_H
#define RVIZ_PLUGIN_TRAFFICLIGHT_MANAGER_H

#include "trafficlight_model.h"

#include "scene_3d_logic/traffic_light_field_check.h"

#include <orsa_msgs/StereoTrafficLightArray.h>

#include <QObject>

#include <array>
#include <memory>
#include <vector>

class QTimer;

namespace rviz_plugin {

// The light heads of up to 50 intersections in the 3D view. An intersection keeps its heads while its
// lights keep their kinds, so that a new message only recolours lamps and turns digits; a lifetime
// hides an intersection that is not shown again in time.
class TrafficlightManager : public QObject {
    Q_OBJECT
public:
    TrafficlightManager(Ogre::SceneManager* sceneManager, Ogre::SceneNode* parentNode);
    ~TrafficlightManager() override;

    void DisplayTrafficlight(const orsa_msgs::StereoTrafficLightArray& message);
    // Hides everything and stops the lifetimes.
    void Reset();
    void HideAll();
    static bool IsEmptyFrameData(const orsa_msgs::StereoTrafficLightArray& message);
    bool IsIntersectionVisible(std::size_t index) const;
    // The models of a group of an intersection: backboard first, then the lamps.
    const std::vector<std::unique_ptr<TrafficlightModel>>& Group(std::size_t intersection, std::size_t group) const;

private Q_SLOTS:
    void HideAssignedIntersection();

private:
    struct LightGroup {
        Ogre::SceneNode* node = nullptr;
        std::vector<std::unique_ptr<TrafficlightModel>> models;
    };
    struct Intersection {
        Ogre::SceneNode* node = nullptr;
        QTimer* timer = nullptr;
        std::vector<LightGroup> groups;
        std::vector<uint8_t> types;  // the kinds of lights the groups were made for
        uint8_t direction = 0;
        bool visible = false;
    };

    void SetView(std::size_t index, const orsa_msgs::StereoTrafficLight& entry);
    void CreateIntersectionTrafficlight(std::size_t index, const orsa_msgs::StereoTrafficLight& entry);
    LightGroup CreateSingleGroupTrafficlight(std::size_t index, std::size_t groupIndex, const orsa_msgs::Light& light);
    void CreateBackBoard(LightGroup& group, const std::string& prefix);
    void CreateCircleLight(LightGroup& group, const std::string& prefix);
    void CreateArrowLight(LightGroup& group, const std::string& prefix, uint8_t type);
    void CreateNumber(LightGroup& group, const std::string& prefix);
    void SetLightView(Intersection& intersection);
    void SetVerticalView(Intersection& intersection);
    void SetHorizontalView(Intersection& intersection);
    void SetDisplayColor(LightGroup& group, const orsa_msgs::Light& light);
    void SetRoundLightDisplayColor(LightGroup& group, const orsa_msgs::Light& light);
    void SetArrowLightDisplayColor(LightGroup& group, const orsa_msgs::Light& light);
    void SetCountdownLightDisplayColor(LightGroup& group, const orsa_msgs::Light& light);
    // The three lamps from models[first] on, in the colours of the light's state.
    void SetLampColors(LightGroup& group, const orsa_msgs::Light& light, std::size_t first);
    void IntersectionNodeManage(const orsa_msgs::StereoTrafficLightArray& message);
    void SetLifetime(const orsa_msgs::StereoTrafficLightArray& message);
    void DestroyGroups(Intersection& intersection);

    Ogre::SceneManager* sceneManager;
    Ogre::SceneNode* parentNode;
    std::array<Intersection, TrafficLightFieldCheck::maxIntersections> intersections;
};

} // namespace rviz_plugin

#endif

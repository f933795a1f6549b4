#ifndef RVIZ_PLUGIN_TRAFFICLIGHT_MODEL_H
#define RVIZ_PLUGIN_TRAFFICLIGHT_MODEL_H

#ifndef Q_MOC_RUN
#include <OgreMaterial.h>
#endif

#include <cstdint>
#include <string>

namespace Ogre {
class Entity;
class SceneManager;
class SceneNode;
} // namespace Ogre

namespace rviz_plugin {

// One mesh of a light head (a board, a lamp or a digit) in a scene node of its own, with a material
// of its own so that each lamp is coloured alone.
class TrafficlightModel {
public:
    enum Kind : uint8_t { RoundLight = 0, CountdownLight = 5, OutsideBack = 6, RoundBack = 7 };

    TrafficlightModel(Ogre::SceneManager* sceneManager, Ogre::SceneNode* parent, const std::string& name,
                      const std::string& meshFile, uint8_t type);
    ~TrafficlightModel();
    TrafficlightModel(const TrafficlightModel&) = delete;
    TrafficlightModel& operator=(const TrafficlightModel&) = delete;

    bool IsOutsideBack() const { return type == OutsideBack; }
    bool IsRoundBack() const { return type == RoundBack; }

    void SetType(uint8_t lightType) { type = lightType; }
    void SetState(uint8_t lightState) { state = lightState; }
    uint8_t GetState() const { return state; }
    // Paints the model in the colour of its state (lit lamps glow).
    void SetColor();
    // Another mesh in the same place (the digits of a countdown).
    void SetMesh(const std::string& meshFile);
    bool IsLoaded() const { return entity != nullptr; }
    const std::string& MeshFile() const { return meshFile; }
    Ogre::SceneNode* Node() const { return node; }

private:
    void Load(const std::string& meshFile);

    Ogre::SceneManager* sceneManager;
    Ogre::SceneNode* node;
    std::string name;
    std::string meshFile;
    Ogre::Entity* entity = nullptr;
    Ogre::MaterialPtr material;
    uint8_t type;
    uint8_t state = 0;
};

} // namespace rviz_plugin

#endif

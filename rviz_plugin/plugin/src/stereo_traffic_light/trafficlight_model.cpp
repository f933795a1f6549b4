#include "trafficlight_model.h"

#include "foundation/logger_stream.h"
#include "scene_3d_logic/traffic_light_field_check.h"

#ifndef Q_MOC_RUN
#include <OgreEntity.h>
#include <OgreMaterialManager.h>
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>
#include <OgreSubEntity.h>
#include <OgreTechnique.h>
#include <rviz/mesh_loader.h>
#endif

namespace rviz_plugin {

namespace {
const std::string meshDirectory = "package://rviz_plugin/media/traffic_light/";
} // namespace

TrafficlightModel::TrafficlightModel(Ogre::SceneManager* manager, Ogre::SceneNode* parent, const std::string& modelName,
                                     const std::string& mesh, uint8_t lightType)
    : sceneManager(manager), node(parent->createChildSceneNode()), name(modelName), type(lightType)
{
    Load(mesh);
}

TrafficlightModel::~TrafficlightModel()
{
    if (entity != nullptr) {
        node->detachObject(entity);
        sceneManager->destroyEntity(entity);
    }
    if (material) {
        Ogre::MaterialManager::getSingleton().remove(material);
    }
    sceneManager->destroySceneNode(node);
}

void TrafficlightModel::Load(const std::string& mesh)
{
    if (mesh == meshFile && entity != nullptr) {
        return;
    }
    if (entity != nullptr) {
        node->detachObject(entity);
        sceneManager->destroyEntity(entity);
        entity = nullptr;
    }
    meshFile = mesh;
    const Ogre::MeshPtr loaded = rviz::loadMeshFromResource(meshDirectory + mesh);
    if (!loaded) {
        Orsa::LoggerStream("StereoTrafficLight", Orsa::LogLevel::Error) << "Failed to load the mesh " << mesh;
        return;
    }
    entity = sceneManager->createEntity(loaded);
    if (!material) {
        material = Ogre::MaterialManager::getSingleton().create("material-" + name,
                                                                Ogre::ResourceGroupManager::DEFAULT_RESOURCE_GROUP_NAME);
        material->setReceiveShadows(false);
    }
    entity->setMaterial(material);
    node->attachObject(entity);
    SetColor();
}

void TrafficlightModel::SetMesh(const std::string& mesh)
{
    Load(mesh);
}

void TrafficlightModel::SetColor()
{
    if (!material) {
        return;
    }
    TrafficLightLook::Rgba colour{0.12F, 0.12F, 0.13F, 1};
    bool lit = false;
    if (!IsOutsideBack() && !IsRoundBack()) {
        colour = TrafficLightLook::ToColor(state);
        lit = state >= 1 && state <= 3;
    }
    const Ogre::ColourValue value(colour.r, colour.g, colour.b, colour.a);
    material->setDiffuse(value);
    material->setAmbient(value * 0.5F);
    material->setSelfIllumination(lit ? value * 0.6F : Ogre::ColourValue::Black);
}

} // namespace rviz_plugin

#include "render_rectangle.h"

#include <OgreMaterialManager.h>
#include <OgreRectangle2D.h>
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>
#include <OgreTechnique.h>
#include <OgreTextureUnitState.h>

#include <atomic>

namespace rviz_plugin {

namespace {
std::atomic<unsigned> materialCounter{0};
}

RenderRectangle::RenderRectangle(Ogre::SceneManager* manager)
    : texture(std::make_unique<ImageTexture>()), sceneManager(manager)
{
    node = sceneManager->getRootSceneNode()->createChildSceneNode();
    rectangle = new Ogre::Rectangle2D(true);
    rectangle->setRenderQueueGroup(Ogre::RENDER_QUEUE_BACKGROUND);
    rectangle->setCorners(-1.0F, 1.0F, 1.0F, -1.0F);

    material = Ogre::MaterialManager::getSingleton().create(
        "VideoDisplayObjectMaterial" + std::to_string(materialCounter++),
        Ogre::ResourceGroupManager::DEFAULT_RESOURCE_GROUP_NAME);
    material->setSceneBlending(Ogre::SBT_TRANSPARENT_ALPHA);
    material->setDepthWriteEnabled(false);
    material->setDepthCheckEnabled(false);
    material->setLightingEnabled(false);
    material->setCullingMode(Ogre::CULL_NONE);
    Ogre::Pass* pass = material->getTechnique(0)->getPass(0);
    textureUnit = pass->createTextureUnitState();
    textureUnit->setTexture(texture->GetTexture());
    textureUnit->setTextureFiltering(Ogre::TFO_NONE);
    textureUnit->setTextureAddressingMode(Ogre::TextureUnitState::TAM_CLAMP);

    Ogre::AxisAlignedBox infinite;
    infinite.setInfinite();
    rectangle->setBoundingBox(infinite);
    rectangle->setMaterial(material);
    node->attachObject(rectangle);
    rectangle->setVisible(false);
}

RenderRectangle::~RenderRectangle()
{
    node->detachAllObjects();
    sceneManager->destroySceneNode(node);
    delete rectangle;
    Ogre::MaterialManager::getSingleton().remove(material);
}

void RenderRectangle::AddDisplayedImage(const std::shared_ptr<TextureData>& data, unsigned windowWidth,
                                        unsigned windowHeight)
{
    texture->AddMessage(data, windowWidth, windowHeight);
}

bool RenderRectangle::UpdateDisplayedImage(bool /*visibilityEnabled*/)
{
    return texture->Update();
}

void RenderRectangle::SetRenderRectangleRegion(float left, float top, float right, float bottom)
{
    rectangle->setCorners(left, top, right, bottom);
}

void RenderRectangle::SetRenderRectangleRenderQueue(uint8_t queue)
{
    rectangle->setRenderQueueGroup(queue);
}

void RenderRectangle::SetRenderRectangleBlending(Ogre::SceneBlendType type)
{
    material->setSceneBlending(type);
}

void RenderRectangle::SetImageTextureIndex(const Ogre::Vector2& topLeft, const Ogre::Vector2& bottomLeft,
                                           const Ogre::Vector2& topRight, const Ogre::Vector2& bottomRight)
{
    rectangle->setUVs(topLeft, bottomLeft, topRight, bottomRight);
}

void RenderRectangle::ShowRenderRectangle()
{
    rectangle->setVisible(true);
}

void RenderRectangle::HideRenderRectangle()
{
    rectangle->setVisible(false);
}

} // namespace rviz_plugin

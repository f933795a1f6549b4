#ifndef RVIZ_PLUGIN_RENDER_RECTANGLE_H
#define RVIZ_PLUGIN_RENDER_RECTANGLE_H

#include "image_texture.h"

#include <OgreCommon.h>
#include <OgreMaterial.h>

#include <memory>

namespace Ogre {
class Rectangle2D;
class SceneManager;
class SceneNode;
class TextureUnitState;
} // namespace Ogre

namespace rviz_plugin {

// A screen-space quad showing one ImageTexture.
class RenderRectangle {
public:
    explicit RenderRectangle(Ogre::SceneManager* sceneManager);
    virtual ~RenderRectangle();
    RenderRectangle(const RenderRectangle&) = delete;
    RenderRectangle& operator=(const RenderRectangle&) = delete;

    void AddDisplayedImage(const std::shared_ptr<TextureData>& data, unsigned windowWidth, unsigned windowHeight);
    void ClearTexture() { texture->Clear(); }
    void ConvertImageTextureFormat() { texture->ConvertImageTexture(); }
    bool IsNewTexture() { return texture->IsNewTexture(); }
    bool IsEmptyTexture() { return texture->IsEmptyTexture(); }
    unsigned GetTextureWidth() { return texture->GetWidth(); }
    unsigned GetTextureHeight() { return texture->GetHeight(); }
    std_msgs::Header GetTextureHeader() { return texture->GetHeader(); }
    std_msgs::Header GetTextureReceivedTime() { return texture->GetReceivedTime(); }
    // Uploads a pending frame; true when the texture changed.
    virtual bool UpdateDisplayedImage(bool visibilityEnabled);

    void SetRenderRectangleRegion(float left, float top, float right, float bottom);
    void SetRenderRectangleRenderQueue(uint8_t queue);
    void SetRenderRectangleBlending(Ogre::SceneBlendType type);
    void SetImageTextureIndex(const Ogre::Vector2& topLeft, const Ogre::Vector2& bottomLeft,
                              const Ogre::Vector2& topRight, const Ogre::Vector2& bottomRight);
    void ShowRenderRectangle();
    void HideRenderRectangle();

private:
    std::unique_ptr<ImageTexture> texture;
    Ogre::SceneManager* sceneManager;
    Ogre::Rectangle2D* rectangle = nullptr;
    Ogre::SceneNode* node = nullptr;
    Ogre::MaterialPtr material;
    Ogre::TextureUnitState* textureUnit = nullptr;
};

} // namespace rviz_plugin

#endif

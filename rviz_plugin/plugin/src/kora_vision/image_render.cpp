#include "image_render.h"

#include "non_interactive_render_panel.h"

#include "foundation/logger.h"
#include "frames/rgba_texture_data.h"
#include "frames/yuv_texture_data.h"

extern "C" {
#include <libavutil/frame.h>
}

#ifndef Q_MOC_RUN
#include <OgreCamera.h>
#include <OgreRenderWindow.h>
#include <OgreSceneNode.h>
#include <OgreViewport.h>
#include <rviz/display_context.h>
#endif

namespace rviz_plugin {

namespace {
constexpr uint8_t imageRenderQueue = 0;
constexpr uint8_t overlayRenderQueue = 99;
} // namespace

ImageRender::ImageRender() = default;

ImageRender::~ImageRender()
{
    if (renderPanel != nullptr && renderPanel->getRenderWindow() != nullptr) {
        renderPanel->getRenderWindow()->removeListener(this);
    }
}

void ImageRender::Initialize(rviz::DisplayContext* displayContext, NonInteractiveRenderPanel* panel,
                             rviz::Display* /*display*/, Ogre::SceneManager* manager, unsigned visibilityBit)
{
    context = displayContext;
    sceneManager = manager;
    renderPanel = panel;
    imageRectangle = std::make_unique<RenderRectangle>(sceneManager);
    imageRectangle->SetRenderRectangleRenderQueue(imageRenderQueue);
    imageRectangle->HideRenderRectangle();
    overlayRectangle = std::make_unique<RenderRectangle>(sceneManager);
    overlayRectangle->SetRenderRectangleRenderQueue(overlayRenderQueue);
    overlayRectangle->SetRenderRectangleBlending(Ogre::SBT_TRANSPARENT_ALPHA);
    overlayRectangle->HideRenderRectangle();

    Ogre::RenderWindow* window = renderPanel->getRenderWindow();
    window->setAutoUpdated(false);
    window->setActive(false);
    window->addListener(this);
    renderPanel->initialize(sceneManager, context);
    renderPanel->setOverlaysEnabled(false);
    renderPanel->getCamera()->setNearClipDistance(nearClipDistance);
    if (renderPanel->getViewport() != nullptr) {
        renderPanel->getViewport()->setVisibilityMask(visibilityBit);
    }
    windowWidth = static_cast<unsigned>(renderPanel->width());
    windowHeight = static_cast<unsigned>(renderPanel->height());
    MoveCameraAway();
}

void ImageRender::UpdateImageTexture(const std::shared_ptr<YuvTextureData>& yuv,
                                     const std::shared_ptr<RgbaTextureData>& rgba)
{
    const unsigned width = windowWidth;
    const unsigned height = windowHeight;
    {
        std::lock_guard<std::mutex> lock(mutex);
        imageRectangle->AddDisplayedImage(yuv, width, height);
        overlayRectangle->AddDisplayedImage(rgba, width, height);
        frameSeen = true;
    }
    if (yuv != nullptr && yuv->GetAvFrame() != nullptr) {
        Q_EMIT SendRenderStatus(rviz::StatusProperty::Ok, "Frame resolution",
                                QString("%1 x %2").arg(yuv->GetAvFrame()->width).arg(yuv->GetAvFrame()->height));
    }
    Q_EMIT SendRenderStatus(rviz::StatusProperty::Ok, "Window size", QString("%1 x %2").arg(width).arg(height));
}

void ImageRender::UpdateImageDisplay()
{
    if (renderPanel == nullptr || !renderPanel->isVisible()) {
        return;
    }
    windowWidth = static_cast<unsigned>(renderPanel->width());
    windowHeight = static_cast<unsigned>(renderPanel->height());
    std::lock_guard<std::mutex> lock(mutex);
    imageRectangle->ConvertImageTextureFormat();
    newTextureLoaded = imageRectangle->UpdateDisplayedImage(false);
    overlayShown = !overlayRectangle->IsEmptyTexture();
    overlayRectangle->ConvertImageTextureFormat();
    overlayRectangle->UpdateDisplayedImage(false);
    if (!UpdateCamera()) {
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Debug, "Failed to update camera");
    }
    renderPanel->getRenderWindow()->update(true);
}

bool ImageRender::UpdateZoomParameters(unsigned textureWidth, unsigned textureHeight, unsigned width,
                                       unsigned height, Zoom& zoom)
{
    zoom = Zoom();
    if (textureWidth == 0 || textureHeight == 0 || width == 0 || height == 0) {
        Orsa::Logger::GetInstance().WriteLog(
            "KoraVision", Orsa::LogLevel::Debug,
            "texture size or window size is zero. textureWidth: " + std::to_string(textureWidth) +
                " textureHeight: " + std::to_string(textureHeight) + " windowWidth: " + std::to_string(width) +
                " windowHeight: " + std::to_string(height));
        return false;
    }
    const float imageAspect = static_cast<float>(textureWidth) / static_cast<float>(textureHeight);
    const float windowAspect = static_cast<float>(width) / static_cast<float>(height);
    if (imageAspect <= windowAspect) {
        zoom.x = imageAspect / windowAspect;
    } else {
        zoom.y = windowAspect / imageAspect;
    }
    return true;
}

bool ImageRender::UpdateCamera()
{
    Zoom zoom;
    if (!UpdateZoomParameters(imageRectangle->GetTextureWidth(), imageRectangle->GetTextureHeight(), windowWidth,
                              windowHeight, zoom)) {
        return false;
    }
    UpdateRectangleCorners(zoom);
    UpdateTextureIndex();
    return true;
}

void ImageRender::UpdateRectangleCorners(const Zoom& zoom)
{
    for (RenderRectangle* rectangle : {imageRectangle.get(), overlayRectangle.get()}) {
        rectangle->SetRenderRectangleRegion(defaultCornerLeft * zoom.x, defaultCornerTop * zoom.y,
                                            defaultCornerRight * zoom.x, defaultCornerBottom * zoom.y);
    }
}

void ImageRender::UpdateTextureIndex()
{
    for (RenderRectangle* rectangle : {imageRectangle.get(), overlayRectangle.get()}) {
        rectangle->SetImageTextureIndex(Ogre::Vector2(0, 0), Ogre::Vector2(0, 1), Ogre::Vector2(1, 0),
                                        Ogre::Vector2(1, 1));
    }
}

void ImageRender::Clear()
{
    std::lock_guard<std::mutex> lock(mutex);
    imageRectangle->ClearTexture();
    overlayRectangle->ClearTexture();
    overlayShown = false;
    frameSeen = false;
    MoveCameraAway();
}

void ImageRender::MoveCameraAway()
{
    Ogre::Camera* camera = renderPanel != nullptr ? renderPanel->getCamera() : nullptr;
    if (camera == nullptr) {
        return;
    }
    Ogre::SceneNode* node = camera->getParentSceneNode();
    if (node == nullptr) {
        node = sceneManager->getRootSceneNode()->createChildSceneNode();
        node->attachObject(camera);
    }
    // Far from the scene: without camera info the window shows the video and nothing of the scene.
    node->setPosition(Ogre::Vector3(cameraIdlePosition, cameraIdlePosition, cameraIdlePosition));
}

void ImageRender::SetRenderWindowState(bool active)
{
    if (renderPanel != nullptr && renderPanel->getRenderWindow() != nullptr) {
        renderPanel->getRenderWindow()->setActive(active);
    }
}

void ImageRender::preRenderTargetUpdate(const Ogre::RenderTargetEvent& /*event*/)
{
    imageRectangle->ShowRenderRectangle();
    if (overlayShown) {
        overlayRectangle->ShowRenderRectangle();
    }
    Q_EMIT UpdateVisibilityProperty();
}

void ImageRender::postRenderTargetUpdate(const Ogre::RenderTargetEvent& /*event*/)
{
    imageRectangle->HideRenderRectangle();
    overlayRectangle->HideRenderRectangle();
}

} // namespace rviz_plugin

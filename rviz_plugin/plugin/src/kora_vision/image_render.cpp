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
#include <OgreMatrix4.h>
#include <OgreRenderWindow.h>
#include <OgreSceneNode.h>
#include <OgreViewport.h>
#include <rviz/display_context.h>
#include <rviz/frame_manager.h>
#endif

namespace rviz_plugin {

namespace {
const char* const logModule = "KoraVision";
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
    if (renderPanel == nullptr) {
        return;
    }
    std::lock_guard<std::mutex> lock(mutex);
    if (!renderPanel->isVisible()) {
        redraw.MarkChanged();
        return;
    }
    windowWidth = static_cast<unsigned>(renderPanel->width());
    windowHeight = static_cast<unsigned>(renderPanel->height());
    imageRectangle->ConvertImageTextureFormat();
    newTextureLoaded = imageRectangle->UpdateDisplayedImage(visibilityEnabled);
    overlayShown = !overlayRectangle->IsEmptyTexture();
    overlayRectangle->ConvertImageTextureFormat();
    const bool newOverlay = overlayRectangle->UpdateDisplayedImage(visibilityEnabled);
    if (!redraw.Due(newTextureLoaded || newOverlay, windowWidth, windowHeight, visibilityEnabled)) {
        return;
    }
    if (!UpdateCamera()) {
        Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Debug, "Failed to update camera");
    }
    renderPanel->getRenderWindow()->update(true);
}

bool ImageRender::UpdateFocus(const sensor_msgs::CameraInfo* info)
{
    focalX = 1.0F;
    focalY = 1.0F;
    if (!visibilityEnabled) {
        return true;
    }
    if (info == nullptr) {
        Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Error,
                                             "Required camera info, but no camera info found");
        return false;
    }
    focalX = static_cast<float>(info->P[0]);
    focalY = static_cast<float>(info->P[5]);
    return true;
}

bool ImageRender::UpdateCamera()
{
    // A local copy: the camera info may be replaced while it is in use.
    const boost::shared_ptr<const sensor_msgs::CameraInfo> info = cameraInfo;
    if (!UpdateFocus(info.get())) {
        return false;
    }
    const unsigned textureWidth = imageRectangle->GetTextureWidth();
    const unsigned textureHeight = imageRectangle->GetTextureHeight();
    if (!ImageGeometry::UpdateZoomParameters(textureWidth, textureHeight, windowWidth, windowHeight, focalX, focalY,
                                             cropping, zoom)) {
        Orsa::Logger::GetInstance().WriteLog(
            logModule, Orsa::LogLevel::Debug,
            "texture size or window size is zero. textureWidth: " + std::to_string(textureWidth) +
                " textureHeight: " + std::to_string(textureHeight) + " windowWidth: " +
                std::to_string(windowWidth) + " windowHeight: " + std::to_string(windowHeight));
        return false;
    }
    if (visibilityEnabled && newTextureLoaded && info != nullptr &&
        !ApplyCameraInfo(*info, imageRectangle->GetTextureHeader())) {
        Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Debug,
                                             "Failed to update camera with camera info");
    }
    UpdateRectangleCorners(info.get());
    UpdateTextureIndex();
    return true;
}

bool ImageRender::ApplyCameraInfo(const sensor_msgs::CameraInfo& info, const std_msgs::Header& header)
{
    if (info.header.frame_id != header.frame_id) {
        Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Warn,
                                             "The camera info frame id is different with image header frame id. "
                                             "CameraInfo Id: " +
                                                 info.header.frame_id + " Image Id: " + header.frame_id);
    }
    Ogre::Vector3 position;
    Ogre::Quaternion orientation;
    if (context == nullptr || !context->getFrameManager()->getTransform(header.frame_id, header.stamp, position,
                                                                         orientation)) {
        Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Debug,
                                             "Failed to get display transform. TF message may be wrong.");
        return false;
    }
    // The image's y axis points down, the camera's up.
    orientation = orientation * Ogre::Quaternion(Ogre::Degree(180), Ogre::Vector3::UNIT_X);
    const float transformX = static_cast<float>(-info.P[3]) / focalX;
    const float transformY = static_cast<float>(-info.P[7]) / focalY;
    position = position + orientation * Ogre::Vector3::UNIT_X * transformX +
               orientation * Ogre::Vector3::UNIT_Y * transformY;
    Ogre::Camera* camera = renderPanel->getCamera();
    camera->getParentSceneNode()->setPosition(position);
    camera->getParentSceneNode()->setOrientation(orientation);
    const std::array<float, 16> projection = ImageGeometry::CameraProjectionMatrix(
        focalX, focalY, static_cast<float>(info.P[2]), static_cast<float>(info.P[6]), info.width, info.height, zoom);
    camera->setCustomProjectionMatrix(true, Ogre::Matrix4(projection[0], projection[1], projection[2], projection[3],
                                                          projection[4], projection[5], projection[6], projection[7],
                                                          projection[8], projection[9], projection[10], projection[11],
                                                          projection[12], projection[13], projection[14],
                                                          projection[15]));
    return true;
}

void ImageRender::UpdateRectangleCorners(const sensor_msgs::CameraInfo* info)
{
    ImageGeometry::RegionOfInterest roi;
    unsigned imageWidth = 0;
    unsigned imageHeight = 0;
    if (info != nullptr) {
        roi = {info->roi.x_offset, info->roi.y_offset, info->roi.width, info->roi.height};
        imageWidth = info->width;
        imageHeight = info->height;
    }
    const ImageGeometry::Corners corners = ImageGeometry::UpdateRectangleCorners(zoom, roi, imageWidth, imageHeight);
    for (RenderRectangle* rectangle : {imageRectangle.get(), overlayRectangle.get()}) {
        rectangle->SetRenderRectangleRegion(corners.left, corners.top, corners.right, corners.bottom);
    }
}

void ImageRender::UpdateTextureIndex()
{
    const ImageGeometry::TextureWindow window = ImageGeometry::UpdateTextureIndex(cropping);
    for (RenderRectangle* rectangle : {imageRectangle.get(), overlayRectangle.get()}) {
        rectangle->SetImageTextureIndex(Ogre::Vector2(window.left, window.top), Ogre::Vector2(window.left, window.bottom),
                                        Ogre::Vector2(window.right, window.top),
                                        Ogre::Vector2(window.right, window.bottom));
    }
}

void ImageRender::OnSendCroppingStatus(bool enabled)
{
    {
        std::lock_guard<std::mutex> lock(mutex);
        cropping.enabled = enabled;
        redraw.MarkChanged();
    }
    UpdateImageDisplay();
}

void ImageRender::OnSendCroppingType(bool zoomType)
{
    std::lock_guard<std::mutex> lock(mutex);
    cropping.zoom = zoomType;
    redraw.MarkChanged();
}

void ImageRender::OnSendZoomFactor(int factor)
{
    std::lock_guard<std::mutex> lock(mutex);
    cropping.zoomFactor = factor;
    redraw.MarkChanged();
}

void ImageRender::OnSendCroppingPercentage(int percent, int side)
{
    if (side < ImageGeometry::Cropping::Top || side > ImageGeometry::Cropping::Right) {
        return;
    }
    std::lock_guard<std::mutex> lock(mutex);
    cropping.percent[static_cast<std::size_t>(side)] = percent;
    redraw.MarkChanged();
}

void ImageRender::OnSendVisibilityStatus(bool visible)
{
    std::lock_guard<std::mutex> lock(mutex);
    visibilityEnabled = visible;
    redraw.MarkChanged();
    if (!visible && renderPanel != nullptr && renderPanel->getCamera() != nullptr) {
        renderPanel->getCamera()->setCustomProjectionMatrix(false);
        MoveCameraAway();
    }
}

void ImageRender::OnUpdateCameraInfo(const boost::shared_ptr<const sensor_msgs::CameraInfo>& info)
{
    std::lock_guard<std::mutex> lock(mutex);
    // Cameras send their info with every picture; outside the scene view only the image area it gives
    // changes the drawing, and the scene view is drawn on every tick anyway.
    const bool sameImageArea = cameraInfo != nullptr && info != nullptr && cameraInfo->width == info->width &&
                               cameraInfo->height == info->height && cameraInfo->roi == info->roi;
    if (!sameImageArea) {
        redraw.MarkChanged();
    }
    cameraInfo = info;
}

std::pair<unsigned, unsigned> ImageRender::GetImageTextureSize()
{
    std::lock_guard<std::mutex> lock(mutex);
    return {imageRectangle->GetTextureWidth(), imageRectangle->GetTextureHeight()};
}

ImageGeometry::Cropping ImageRender::GetCropping()
{
    std::lock_guard<std::mutex> lock(mutex);
    return cropping;
}

ImageGeometry::Zoom ImageRender::GetZoom()
{
    std::lock_guard<std::mutex> lock(mutex);
    return zoom;
}

void ImageRender::Clear()
{
    std::lock_guard<std::mutex> lock(mutex);
    imageRectangle->ClearTexture();
    overlayRectangle->ClearTexture();
    overlayShown = false;
    frameSeen = false;
    MoveCameraAway();
    redraw.MarkChanged();
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

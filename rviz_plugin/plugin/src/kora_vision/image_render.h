#ifndef RVIZ_PLUGIN_IMAGE_RENDER_H
#define RVIZ_PLUGIN_IMAGE_RENDER_H

#include "render_rectangle.h"

#include "kora_vision_logic/image_geometry.h"
#include "kora_vision_logic/redraw_schedule.h"
#include "overlay/image_texture_sink.h"

#include <QObject>
#include <QString>

#ifndef Q_MOC_RUN
#include <OgreRenderTargetListener.h>
#include <rviz/properties/status_property.h>
#include <sensor_msgs/CameraInfo.h>
#endif

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace Ogre {
class SceneManager;
}

namespace rviz {
class Display;
class DisplayContext;
} // namespace rviz

namespace rviz_plugin {

class NonInteractiveRenderPanel;
class YuvTextureData;
class RgbaTextureData;

// Shows one video item in its render panel: the video quad at the back, the overlay canvas in
// front. Frames come from the overlay thread; conversion and upload happen on the main thread.
class ImageRender : public QObject, public Ogre::RenderTargetListener, public ImageTextureSink {
    Q_OBJECT
public:
    ImageRender();
    ~ImageRender() override;

    void Initialize(rviz::DisplayContext* context, NonInteractiveRenderPanel* panel, rviz::Display* display,
                    Ogre::SceneManager* sceneManager, unsigned visibilityBit);
    // From the overlay thread, with each picture and its canvas. A null rgba hides the overlay quad.
    void UpdateImageTexture(const std::shared_ptr<YuvTextureData>& yuv,
                            const std::shared_ptr<RgbaTextureData>& rgba) override;
    // From the main thread, on rviz's update tick: uploads what arrived and draws the window when what it
    // shows changed.
    void UpdateImageDisplay();
    void Clear();
    void SetRenderWindowState(bool active);
    NonInteractiveRenderPanel* GetRenderPanel() const { return renderPanel; }
    bool HasShownFrame() const { return frameSeen; }

    void preRenderTargetUpdate(const Ogre::RenderTargetEvent& event) override;
    void postRenderTargetUpdate(const Ogre::RenderTargetEvent& event) override;

    // Size of the video texture now on the quad (the idle picture's when no frame is shown).
    std::pair<unsigned, unsigned> GetImageTextureSize();
    ImageGeometry::Cropping GetCropping();
    ImageGeometry::Zoom GetZoom();

public Q_SLOTS:
    void OnSendCroppingStatus(bool enabled);
    void OnSendCroppingType(bool zoom);
    void OnSendZoomFactor(int factor);
    void OnSendCroppingPercentage(int percent, int side);
    void OnSendVisibilityStatus(bool visible);
    void OnUpdateCameraInfo(const boost::shared_ptr<const sensor_msgs::CameraInfo>& info);

Q_SIGNALS:
    void UpdateVisibilityProperty();
    void SendRenderStatus(rviz::StatusProperty::Level level, const QString& key, const QString& text);

private:
    bool UpdateCamera();
    bool UpdateFocus(const sensor_msgs::CameraInfo* info);
    bool ApplyCameraInfo(const sensor_msgs::CameraInfo& info, const std_msgs::Header& header);
    void MoveCameraAway();
    void UpdateRectangleCorners(const sensor_msgs::CameraInfo* info);
    void UpdateTextureIndex();

    const float nearClipDistance = 0.01F;
    const float cameraIdlePosition = 999999.0F;
    Ogre::SceneManager* sceneManager = nullptr;
    NonInteractiveRenderPanel* renderPanel = nullptr;
    std::unique_ptr<RenderRectangle> imageRectangle;
    std::unique_ptr<RenderRectangle> overlayRectangle;
    std::mutex mutex;
    ImageGeometry::Cropping cropping;
    RedrawSchedule redraw;
    bool visibilityEnabled = false;
    bool newTextureLoaded = false;
    boost::shared_ptr<const sensor_msgs::CameraInfo> cameraInfo;
    ImageGeometry::Zoom zoom;
    float focalX = 1.0F;
    float focalY = 1.0F;
    bool overlayShown = false;
    rviz::DisplayContext* context = nullptr;
    std::atomic<bool> frameSeen{false};
    // Size of the panel, kept by the main thread for the overlay thread.
    std::atomic<unsigned> windowWidth{0};
    std::atomic<unsigned> windowHeight{0};
};

} // namespace rviz_plugin

#endif

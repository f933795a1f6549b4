#ifndef RVIZ_PLUGIN_IMAGE_RENDER_H
#define RVIZ_PLUGIN_IMAGE_RENDER_H

#include "render_rectangle.h"

#include "overlay/image_texture_sink.h"

#include <QObject>
#include <QString>

#ifndef Q_MOC_RUN
#include <OgreRenderTargetListener.h>
#include <rviz/properties/status_property.h>
#endif

#include <atomic>
#include <memory>
#include <mutex>

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
    // From the main thread, on rviz's update tick.
    void UpdateImageDisplay();
    void Clear();
    void SetRenderWindowState(bool active);
    NonInteractiveRenderPanel* GetRenderPanel() const { return renderPanel; }
    bool HasShownFrame() const { return frameSeen; }

    void preRenderTargetUpdate(const Ogre::RenderTargetEvent& event) override;
    void postRenderTargetUpdate(const Ogre::RenderTargetEvent& event) override;

    // Corners of the picture in the window, letterboxed: the picture keeps its aspect.
    struct Zoom {
        float x = 1.0F;
        float y = 1.0F;
    };
    static bool UpdateZoomParameters(unsigned textureWidth, unsigned textureHeight, unsigned windowWidth,
                                     unsigned windowHeight, Zoom& zoom);

Q_SIGNALS:
    void UpdateVisibilityProperty();
    void SendRenderStatus(rviz::StatusProperty::Level level, const QString& key, const QString& text);

private:
    bool UpdateCamera();
    void MoveCameraAway();
    void UpdateRectangleCorners(const Zoom& zoom);
    void UpdateTextureIndex();

    const float nearClipDistance = 0.01F;
    const float defaultCornerTop = 1.0F;
    const float defaultCornerBottom = -1.0F;
    const float defaultCornerLeft = -1.0F;
    const float defaultCornerRight = 1.0F;
    const float cameraIdlePosition = 999999.0F;
    Ogre::SceneManager* sceneManager = nullptr;
    NonInteractiveRenderPanel* renderPanel = nullptr;
    std::unique_ptr<RenderRectangle> imageRectangle;
    std::unique_ptr<RenderRectangle> overlayRectangle;
    std::mutex mutex;
    bool newTextureLoaded = false;
    bool overlayShown = false;
    rviz::DisplayContext* context = nullptr;
    std::atomic<bool> frameSeen{false};
    // Size of the panel, kept by the main thread for the overlay thread.
    std::atomic<unsigned> windowWidth{0};
    std::atomic<unsigned> windowHeight{0};
};

} // namespace rviz_plugin

#endif

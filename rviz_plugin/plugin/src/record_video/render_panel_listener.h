#ifndef RVIZ_PLUGIN_RENDER_PANEL_LISTENER_H
#define RVIZ_PLUGIN_RENDER_PANEL_LISTENER_H

#include <OgreRenderTargetListener.h>

#include <cstdint>
#include <mutex>
#include <vector>

namespace Ogre {
class RenderTarget;
}

namespace rviz_plugin {

// Copies the 3D view's picture (BGRA) after each frame it renders, for the recorder to fetch; the render
// loop pays only that copy.
class RenderPanelListener : public Ogre::RenderTargetListener {
public:
    static constexpr int alignment = 4;

    void postViewportUpdate(const Ogre::RenderTargetViewportEvent& event) override;
    bool IsDataReady() const;
    // A copy of the newest picture; false when there is none.
    bool GetPixel(std::vector<uint8_t>& pixels, int& width, int& height) const;
    // width rounded down to a multiple of the alignment.
    static int AlignWidth(int width);

private:
    void GetContents(Ogre::RenderTarget* target);

    mutable std::mutex mutex;
    std::vector<uint8_t> buffer;
    int width = 0;
    int height = 0;
    bool dataReady = false;
};

} // namespace rviz_plugin

#endif

#include "render_panel_listener.h"

#include <OgrePixelFormat.h>
#include <OgreRenderTarget.h>
#include <OgreViewport.h>

namespace rviz_plugin {

namespace {
constexpr int bytesPerPixel = 4;
}

int RenderPanelListener::AlignWidth(int value)
{
    return value - value % alignment;
}

void RenderPanelListener::postViewportUpdate(const Ogre::RenderTargetViewportEvent& event)
{
    if (event.source != nullptr && event.source->getTarget() != nullptr) {
        GetContents(event.source->getTarget());
    }
}

void RenderPanelListener::GetContents(Ogre::RenderTarget* target)
{
    const int targetWidth = AlignWidth(static_cast<int>(target->getWidth()));
    const int targetHeight = static_cast<int>(target->getHeight()) & ~1;
    if (targetWidth <= 0 || targetHeight <= 0) {
        return;
    }
    std::lock_guard<std::mutex> lock(mutex);
    buffer.resize(static_cast<std::size_t>(targetWidth) * targetHeight * bytesPerPixel);
    const Ogre::PixelBox box(static_cast<std::size_t>(targetWidth), static_cast<std::size_t>(targetHeight), 1,
                             Ogre::PF_A8R8G8B8, buffer.data());
    target->copyContentsToMemory(Ogre::Box(0, 0, static_cast<uint32_t>(targetWidth), static_cast<uint32_t>(targetHeight)),
                                 box, Ogre::RenderTarget::FB_AUTO);
    width = targetWidth;
    height = targetHeight;
    dataReady = true;
}

bool RenderPanelListener::IsDataReady() const
{
    std::lock_guard<std::mutex> lock(mutex);
    return dataReady;
}

bool RenderPanelListener::GetPixel(std::vector<uint8_t>& pixels, int& pictureWidth, int& pictureHeight) const
{
    std::lock_guard<std::mutex> lock(mutex);
    if (!dataReady) {
        return false;
    }
    pixels = buffer;
    pictureWidth = width;
    pictureHeight = height;
    return true;
}

} // namespace rviz_plugin

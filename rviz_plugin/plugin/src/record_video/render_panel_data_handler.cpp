#include "render_panel_data_handler.h"

#include <OgreRenderWindow.h>
#include <ros/time.h>
#include <rviz/render_panel.h>


namespace rviz_plugin {

namespace {
constexpr int bgraFormat = 28;
constexpr int bytesPerPixel = 4;
} // namespace

RenderPanelDataHandler::RenderPanelDataHandler(rviz::RenderPanel* panel, QObject* parent)
    : DataRecorderBase(parent), renderPanel(panel)
{
}

RenderPanelDataHandler::~RenderPanelDataHandler()
{
    ShutDown();
}

void RenderPanelDataHandler::StartSubscriber()
{
    if (renderPanel != nullptr && renderPanel->getRenderWindow() != nullptr && !listening) {
        renderPanel->getRenderWindow()->addListener(&listener);
        listening = true;
    }
}

void RenderPanelDataHandler::ShutDownSubscriber()
{
    if (listening && renderPanel != nullptr && renderPanel->getRenderWindow() != nullptr) {
        renderPanel->getRenderWindow()->removeListener(&listener);
    }
    listening = false;
}

bool RenderPanelDataHandler::ConstructImage(custom::AvFrame& frame) const
{
    int width = 0;
    int height = 0;
    frame.data.resize(1);
    if (!listener.GetPixel(frame.data[0].data, width, height)) {
        return false;
    }
    frame.format = bgraFormat;
    frame.width = width;
    frame.height = height;
    frame.linesize = {width * bytesPerPixel};
    return true;
}

std::pair<int, int> RenderPanelDataHandler::GetDataResolution()
{
    custom::AvFrame frame;
    return ConstructImage(frame) ? std::make_pair(frame.width, frame.height) : std::make_pair(0, 0);
}

QImage RenderPanelDataHandler::GetPreviewImage()
{
    std::lock_guard<std::mutex> lock(previewMutex);
    return previewImage;
}

void RenderPanelDataHandler::OnTimeout()
{
    ++queuedTicks;
}

void RenderPanelDataHandler::Recording()
{
    --queuedTicks;
    if (IsPreviewing()) {
        if (!isPreviewImageReady && ConstructImage(picture)) {
            const QImage wrapped(picture.data[0].data.data(), picture.width, picture.height, picture.linesize[0],
                                 QImage::Format_ARGB32);
            std::lock_guard<std::mutex> lock(previewMutex);
            previewImage = wrapped.copy();
            isPreviewImageReady = true;
        }
        return;
    }
    if (!IsRecording() || !isActive) {
        return;
    }
    WarnIfStacked(queuedTicks);
    if (ConstructImage(picture)) {
        EncodeTimed(picture);
    }
}

bool RenderPanelDataHandler::Start()
{
    const ros::Time now = ros::Time::now();
    const std::string name =
        settings.folder + "/3d_area_data_" + std::to_string(now.sec) + "-" + std::to_string(now.nsec) + ".mp4";
    SetFileName(name);
    encoder->SetFileName(name);
    encoder->InitWriteHeader();
    return encoder->GetIsInitialized();
}

} // namespace rviz_plugin

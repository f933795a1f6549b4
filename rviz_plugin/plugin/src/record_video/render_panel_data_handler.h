#ifndef RVIZ_PLUGIN_RENDER_PANEL_DATA_HANDLER_H
#define RVIZ_PLUGIN_RENDER_PANEL_DATA_HANDLER_H

#include "render_panel_listener.h"

#include "record_video_logic/data_recorder_base.h"

#ifndef Q_MOC_RUN
#include <custom/AvFrame.h>
#endif

#include <atomic>
#include <mutex>

namespace rviz {
class RenderPanel;
}

namespace rviz_plugin {

// Records the 3D view, the pseudo topic "/3d_area_data": each beat encodes the newest picture the view
// rendered, into "3d_area_data_<sec>-<nsec>.mp4".
class RenderPanelDataHandler : public DataRecorderBase {
    Q_OBJECT

public:
    static constexpr const char* pseudoTopic = "/3d_area_data";
    static constexpr const char* recorderType = "3d_area_data";

    explicit RenderPanelDataHandler(rviz::RenderPanel* panel, QObject* parent = nullptr);
    ~RenderPanelDataHandler() override;

    std::pair<int, int> GetDataResolution() override;
    QImage GetPreviewImage() override;
    bool GetIsPreviewImageReady() const override { return isPreviewImageReady; }

protected:
    void OnTimeout() override;
    void Recording() override;
    bool Start() override;
    void StartSubscriber() override;
    void ShutDownSubscriber() override;

private:
    // The view's newest picture as a BGRA frame; false when it has rendered none yet.
    bool ConstructImage(custom::AvFrame& frame) const;

    rviz::RenderPanel* renderPanel = nullptr;
    RenderPanelListener listener;
    bool listening = false;
    std::atomic<int> queuedTicks{0};
    std::atomic<bool> isPreviewImageReady{false};
    std::mutex previewMutex;
    QImage previewImage;
    custom::AvFrame picture;
};

} // namespace rviz_plugin

#endif

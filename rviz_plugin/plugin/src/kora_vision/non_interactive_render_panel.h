#ifndef RVIZ_PLUGIN_NON_INTERACTIVE_RENDER_PANEL_H
#define RVIZ_PLUGIN_NON_INTERACTIVE_RENDER_PANEL_H

#ifndef Q_MOC_RUN
#include <rviz/render_panel.h>
#endif

namespace rviz_plugin {

// A render panel that takes no view-control input: video windows keep their camera.
class NonInteractiveRenderPanel : public rviz::RenderPanel {
    Q_OBJECT
public:
    explicit NonInteractiveRenderPanel(QWidget* parent = nullptr);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace rviz_plugin

#endif

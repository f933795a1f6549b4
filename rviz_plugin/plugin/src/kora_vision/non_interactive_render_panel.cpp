#include "non_interactive_render_panel.h"

namespace rviz_plugin {

NonInteractiveRenderPanel::NonInteractiveRenderPanel(QWidget* parent) : rviz::RenderPanel(parent) {}

void NonInteractiveRenderPanel::mouseMoveEvent(QMouseEvent*) {}
void NonInteractiveRenderPanel::mousePressEvent(QMouseEvent*) {}
void NonInteractiveRenderPanel::mouseReleaseEvent(QMouseEvent*) {}
void NonInteractiveRenderPanel::mouseDoubleClickEvent(QMouseEvent*) {}
void NonInteractiveRenderPanel::wheelEvent(QWheelEvent*) {}
void NonInteractiveRenderPanel::keyPressEvent(QKeyEvent*) {}

} // namespace rviz_plugin

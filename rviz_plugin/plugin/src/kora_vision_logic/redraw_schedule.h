#ifndef RVIZ_PLUGIN_REDRAW_SCHEDULE_H
#define RVIZ_PLUGIN_REDRAW_SCHEDULE_H

namespace rviz_plugin {

// When a video item's window is drawn again. Every drawing costs a full render and a buffer swap, and
// rviz ticks faster than cameras send, so a window is drawn on a tick only when what it shows changed:
// a new picture or canvas, a new window size, or something marked (a setting, the camera info, a clear,
// a time hidden). A window that shows the scene through its camera is drawn on every tick, because the
// scene moves on its own. Window-system exposes are drawn by the window itself and need nothing here.
class RedrawSchedule {
public:
    // What the window shows changed in a way the next tick cannot see.
    void MarkChanged() { changed = true; }
    // On each tick: whether to draw now. Takes back what was marked once it says yes.
    bool Due(bool newContent, unsigned windowWidth, unsigned windowHeight, bool sceneShown);

private:
    bool changed = true;
    unsigned width = 0;
    unsigned height = 0;
};

} // namespace rviz_plugin

#endif

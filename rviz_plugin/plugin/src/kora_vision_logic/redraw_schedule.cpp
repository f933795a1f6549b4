#include "redraw_schedule.h"

namespace rviz_plugin {

bool RedrawSchedule::Due(bool newContent, unsigned windowWidth, unsigned windowHeight, bool sceneShown)
{
    const bool resized = windowWidth != width || windowHeight != height;
    width = windowWidth;
    height = windowHeight;
    const bool due = changed || resized || newContent || sceneShown;
    changed = false;
    return due;
}

} // namespace rviz_plugin

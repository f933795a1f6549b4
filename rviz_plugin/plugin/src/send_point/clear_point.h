#ifndef RVIZ_PLUGIN_CLEAR_POINT_H
#define RVIZ_PLUGIN_CLEAR_POINT_H

#include "base_point.h"

namespace rviz_plugin {

// Activating it is the whole operation: one empty point on "ClearPoints", which removes the flags of
// every point tool, and back to the default tool.
class ClearPoint : public BasePoint {
    Q_OBJECT
public:
    ClearPoint();
    void activate() override;
    void deactivate() override {}
    int processMouseEvent(rviz::ViewportMouseEvent& /*event*/) override { return Finished; }
};

} // namespace rviz_plugin

#endif

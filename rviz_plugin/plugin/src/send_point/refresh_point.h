#ifndef RVIZ_PLUGIN_REFRESH_POINT_H
#define RVIZ_PLUGIN_REFRESH_POINT_H

#include "base_point.h"

namespace rviz_plugin {

// Activating it sends the platform the point the view looks at (map offset added) on
// "TopicRefreshMap", so that it refreshes the map around it, and goes back to the default tool.
class RefreshPoint : public BasePoint {
    Q_OBJECT
public:
    RefreshPoint();
    void activate() override;
    void deactivate() override {}
    int processMouseEvent(rviz::ViewportMouseEvent& /*event*/) override { return Finished; }

private:
    // The view's focal point, or zero (logged) without a view or camera.
    geometry_msgs::PointStamped FocalPoint() const;
};

} // namespace rviz_plugin

#endif

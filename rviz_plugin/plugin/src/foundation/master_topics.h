#ifndef RVIZ_PLUGIN_MASTER_TOPICS_H
#define RVIZ_PLUGIN_MASTER_TOPICS_H

#ifndef Q_MOC_RUN
#include <ros/master.h>
#endif

namespace rviz_plugin {

// The topics the master knows, asked once: false at once when the master cannot be reached (roscpp's own
// call waits for the master, which would hold the GUI for as long as it is gone).
bool GetTopicsWithoutWaiting(ros::master::V_TopicInfo& topics);

} // namespace rviz_plugin

#endif

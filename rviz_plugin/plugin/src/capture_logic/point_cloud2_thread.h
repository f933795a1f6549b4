#ifndef RVIZ_PLUGIN_POINT_CLOUD2_THREAD_H
#define RVIZ_PLUGIN_POINT_CLOUD2_THREAD_H

#include "save_thread_base.h"

#ifndef Q_MOC_RUN
#include <sensor_msgs/PointCloud2.h>
#endif

#include <vector>

namespace rviz_plugin {

// Writes a topic's kept clouds as compressed binary "<topic>-<sec>-<nsec>.pcd" into "<export folder>/<topic>".
class PointCloud2Thread : public SaveThreadBase {
    Q_OBJECT

public:
    PointCloud2Thread(const QString& exportFolder, const std::string& topic,
                      std::vector<boost::shared_ptr<const sensor_msgs::PointCloud2>> clouds);
    static bool IsCloudTooLarge(uint64_t bytes);

protected:
    void run() override;

private:
    std::vector<boost::shared_ptr<const sensor_msgs::PointCloud2>> clouds;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_PCD_EXPORT_H
#define RVIZ_PLUGIN_PCD_EXPORT_H

#include <sensor_msgs/PointCloud2.h>

#include <string>

namespace pcl {
struct PCLPointCloud2;
}

namespace rviz_plugin {

// The ROS cloud as PCL's generic cloud: the same fields, layout and bytes.
void RosPointCloud2ToPCLPointCloud2(const sensor_msgs::PointCloud2& cloud, pcl::PCLPointCloud2& converted);
// Writes the cloud as a compressed binary PCD file; false when it cannot be written.
bool WriteBinaryCompressedPcd(const std::string& path, const sensor_msgs::PointCloud2& cloud);

} // namespace rviz_plugin

#endif

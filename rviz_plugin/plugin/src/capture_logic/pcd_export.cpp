#include "pcd_export.h"

#include <pcl/PCLPointCloud2.h>
#include <pcl/io/pcd_io.h>

namespace rviz_plugin {

namespace {
constexpr uint64_t nanosecondsPerMicrosecond = 1000;
}

void RosPointCloud2ToPCLPointCloud2(const sensor_msgs::PointCloud2& cloud, pcl::PCLPointCloud2& converted)
{
    converted.header.frame_id = cloud.header.frame_id;
    converted.header.seq = cloud.header.seq;
    converted.header.stamp = cloud.header.stamp.toNSec() / nanosecondsPerMicrosecond;
    converted.height = cloud.height;
    converted.width = cloud.width;
    converted.fields.clear();
    for (const auto& field : cloud.fields) {
        pcl::PCLPointField pclField;
        pclField.name = field.name;
        pclField.offset = field.offset;
        pclField.datatype = field.datatype;
        pclField.count = field.count;
        converted.fields.push_back(pclField);
    }
    converted.is_bigendian = cloud.is_bigendian;
    converted.point_step = cloud.point_step;
    converted.row_step = cloud.row_step;
    converted.is_dense = cloud.is_dense;
    converted.data = cloud.data;
}

bool WriteBinaryCompressedPcd(const std::string& path, const sensor_msgs::PointCloud2& cloud)
{
    pcl::PCLPointCloud2 converted;
    RosPointCloud2ToPCLPointCloud2(cloud, converted);
    try {
        return pcl::PCDWriter().writeBinaryCompressed(path, converted) == 0;
    } catch (const std::exception&) {
        return false;  // the writer throws when the file cannot be opened
    }
}

} // namespace rviz_plugin

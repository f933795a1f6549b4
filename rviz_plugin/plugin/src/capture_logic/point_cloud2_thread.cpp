#include "point_cloud2_thread.h"

#include "pcd_export.h"

#include <utility>

namespace rviz_plugin {

bool PointCloud2Thread::IsCloudTooLarge(uint64_t bytes)
{
    return bytes > maxCloudBytes;
}

PointCloud2Thread::PointCloud2Thread(const QString& exportFolder, const std::string& topic,
                                     std::vector<boost::shared_ptr<const sensor_msgs::PointCloud2>> kept)
    : SaveThreadBase(exportFolder, ExportName(topic, "")), clouds(std::move(kept))
{
}

void PointCloud2Thread::run()
{
    if (clouds.empty()) {
        Q_EMIT SaveFailed(NoPointCloudData, folder);
        return;
    }
    if (!MakeFolder()) {
        return;
    }
    for (const auto& cloud : clouds) {
        QString path;
        if (!FreePath(cloud->header.stamp, "pcd", path)) {
            return;
        }
        // Checked before the writer is called: a cloud this large is refused whatever the writer would do.
        if (IsCloudTooLarge(cloud->data.size())) {
            Q_EMIT SaveFailed(CloudTooLarge, path);
            return;
        }
        if (!WriteBinaryCompressedPcd(path.toStdString(), *cloud)) {
            Q_EMIT SaveFailed(WriteError, path);
            return;
        }
    }
    Q_EMIT SaveSucceeded();
}

} // namespace rviz_plugin

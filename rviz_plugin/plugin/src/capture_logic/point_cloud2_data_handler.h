#ifndef RVIZ_PLUGIN_POINT_CLOUD2_DATA_HANDLER_H
#define RVIZ_PLUGIN_POINT_CLOUD2_DATA_HANDLER_H

#include "cached_data_handler.h"

#ifndef Q_MOC_RUN
#include <sensor_msgs/PointCloud2.h>
#endif

namespace rviz_plugin {

// Captures a point cloud topic; exports compressed binary PCD. Its preview is the cloud seen from above.
class PointCloud2DataHandler : public CachedDataHandler<sensor_msgs::PointCloud2> {
    Q_OBJECT

public:
    static constexpr const char* topicType = "sensor_msgs/PointCloud2";
    static constexpr int previewSize = 480;
    static constexpr float previewRange = 60.0F;  // metres from the sensor to the picture's edge

    std::map<ros::Time, QImage> GetImages(const std::vector<ros::Time>& stamps) const override;
    // The cloud's x and y seen from above (x up), its points coloured by height.
    static QImage TopView(const sensor_msgs::PointCloud2& cloud);

protected:
    QThread* MakeSaveThread(const QString& folder, const std::vector<ros::Time>& stamps) override;
};

} // namespace rviz_plugin

#endif

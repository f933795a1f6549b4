#include "point_cloud2_data_handler.h"

#include "point_cloud2_thread.h"

#include <QColor>

#include <sensor_msgs/point_cloud2_iterator.h>

#include <algorithm>
#include <cmath>

namespace rviz_plugin {

namespace {
constexpr float lowest = -2.0F;
constexpr float highest = 4.0F;
constexpr int hueRange = 240;
} // namespace

QImage PointCloud2DataHandler::TopView(const sensor_msgs::PointCloud2& cloud)
{
    QImage image(previewSize, previewSize, QImage::Format_RGB32);
    image.fill(QColor(30, 30, 30));
    const auto hasField = [&cloud](const char* name) {
        return std::any_of(cloud.fields.begin(), cloud.fields.end(),
                           [name](const sensor_msgs::PointField& field) { return field.name == name; });
    };
    if (!hasField("x") || !hasField("y") || !hasField("z") || cloud.point_step == 0 ||
        cloud.data.size() < static_cast<std::size_t>(cloud.width) * cloud.height * cloud.point_step) {
        return image;
    }
    const float scale = previewSize / (2.0F * previewRange);
    sensor_msgs::PointCloud2ConstIterator<float> x(cloud, "x");
    sensor_msgs::PointCloud2ConstIterator<float> y(cloud, "y");
    sensor_msgs::PointCloud2ConstIterator<float> z(cloud, "z");
    for (; x != x.end(); ++x, ++y, ++z) {
        if (!std::isfinite(*x) || !std::isfinite(*y) || !std::isfinite(*z)) {
            continue;
        }
        const int column = static_cast<int>(previewSize / 2.0F - *y * scale);
        const int row = static_cast<int>(previewSize / 2.0F - *x * scale);
        if (column < 0 || row < 0 || column >= previewSize || row >= previewSize) {
            continue;
        }
        const float share = std::clamp((*z - lowest) / (highest - lowest), 0.0F, 1.0F);
        image.setPixel(column, row, QColor::fromHsv(static_cast<int>(hueRange * (1.0F - share)), 255, 255).rgb());
    }
    return image;
}

std::map<ros::Time, QImage> PointCloud2DataHandler::GetImages(const std::vector<ros::Time>& stamps) const
{
    std::map<ros::Time, QImage> images;
    for (const auto& cloud : Select(stamps)) {
        images[cloud->header.stamp] = TopView(*cloud);
    }
    return images;
}

QThread* PointCloud2DataHandler::MakeSaveThread(const QString& folder, const std::vector<ros::Time>& stamps)
{
    auto* thread = new PointCloud2Thread(folder, topic, Select(stamps));
    ConnectSaveThread(thread);
    return thread;
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_IMAGE_FREESPACE_UTILS_H
#define RVIZ_PLUGIN_IMAGE_FREESPACE_UTILS_H

#include "ipp_config.h"

#include <orsa_msgs/ImageFreespace.h>

#include <QObject>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

#include <opencv2/core.hpp>

namespace rviz_plugin {
namespace ImageUtils {

// Paints the drivable area from a small mask in the freespace colour.
class ImageFreespaceUtils : public QObject {
    Q_OBJECT
public:
    void Draw(cv::Mat& image, const IppConfig& config, const orsa_msgs::ImageFreespace& message,
              bool frameIdMatches) const;

Q_SIGNALS:
    void AddImageFreespaceStatus(rviz::StatusProperty::Level level, const QString& key, const QString& text) const;
    void RemoveImageFreespaceStatus(const QString& key) const;
};

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

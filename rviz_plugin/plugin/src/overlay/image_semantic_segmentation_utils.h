#ifndef RVIZ_PLUGIN_IMAGE_SEMANTIC_SEGMENTATION_UTILS_H
#define RVIZ_PLUGIN_IMAGE_SEMANTIC_SEGMENTATION_UTILS_H

#include "ipp_config.h"

#include <orsa_msgs/SemanticSegmentation.h>

#include <QObject>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

#include <opencv2/core.hpp>

namespace rviz_plugin {
namespace ImageUtils {

// Paints a class map over the whole canvas, one colour and alpha per configured class.
class ImageSemanticSegmentationUtils : public QObject {
    Q_OBJECT
public:
    // True when every pixel of the canvas was painted.
    bool Draw(cv::Mat& image, const IppConfig& config, const orsa_msgs::SemanticSegmentation& message,
              bool frameIdMatches) const;

Q_SIGNALS:
    void AddImageSemanticSegmentationStatus(rviz::StatusProperty::Level level, const QString& key,
                                            const QString& text) const;
    void RemoveImageSemanticSegmentationStatus(const QString& key) const;
};

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

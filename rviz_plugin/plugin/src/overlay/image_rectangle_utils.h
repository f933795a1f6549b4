#ifndef RVIZ_PLUGIN_IMAGE_RECTANGLE_UTILS_H
#define RVIZ_PLUGIN_IMAGE_RECTANGLE_UTILS_H

#include "image_utils.h"
#include "label_strips.h"

#include <custom/ImageRectangleArray.h>

#include <QObject>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

namespace rviz_plugin {
namespace ImageUtils {

// Draws the traffic light rectangles with their labels.
class ImageRectangleUtils : public QObject {
    Q_OBJECT
public:
    ImageRectangleUtils();

    void Draw(cv::Mat& image, const IppConfig& config, const custom::ImageRectangleArray& message,
              bool frameIdMatches) const;
    void PrintImageRectangleArrayStatus(signed char status) const;

Q_SIGNALS:
    void AddImageRectangleArrayStatus(rviz::StatusProperty::Level level, const QString& key,
                                      const QString& text) const;
    void RemoveImageRectangleArrayStatus(const QString& key) const;

private:
    std::map<signed char, QString> statusTexts;
    // The painter's labels, kept across frames (Draw runs on one overlay thread).
    mutable LabelStrips labelStrips;
};

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_IMAGE_OBJECT_UTILS_H
#define RVIZ_PLUGIN_IMAGE_OBJECT_UTILS_H

#include "image_utils.h"
#include "label_strips.h"

#include <custom/ObjectArray.h>

#include <QObject>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

namespace rviz_plugin {
namespace ImageUtils {

// Draws the 2D boxes and polygons of detected objects with their labels.
class ImageObjectUtils : public QObject {
    Q_OBJECT
public:
    ImageObjectUtils();

    void Draw(cv::Mat& image, const IppConfig& config, const custom::ObjectArray& message, bool frameIdMatches) const;
    void PrintObjectArrayStatus(signed char status) const;

Q_SIGNALS:
    void AddObjectArrayStatus(rviz::StatusProperty::Level level, const QString& key, const QString& text) const;
    void RemoveObjectArrayStatus(const QString& key) const;

private:
    void DrawObject(cv::Mat& image, const IppConfig& config, const custom::Object& object, signed char& status) const;
    void DrawObjectPolygon(cv::Mat& image, const IppConfig& config, const custom::Object& object,
                           signed char& status) const;
    std::vector<std::string> GetObjectLabels(const IppConfig& config, const custom::Object& object,
                                             bool notConfigured) const;

    std::map<signed char, QString> statusTexts;
    // The painter's labels, kept across frames (Draw runs on one overlay thread).
    mutable LabelStrips labelStrips;
};

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

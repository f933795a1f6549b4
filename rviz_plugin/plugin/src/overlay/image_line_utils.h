#ifndef RVIZ_PLUGIN_IMAGE_LINE_UTILS_H
#define RVIZ_PLUGIN_IMAGE_LINE_UTILS_H

#include "image_utils.h"
#include "label_strips.h"

#include <custom/ImageLineArray.h>

#include <QObject>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

namespace rviz_plugin {
namespace ImageUtils {

// Draws road lines, x = a*y^3 + b*y^2 + c*y + d between their start and end rows, solid or dashed.
class ImageLineUtils : public QObject {
    Q_OBJECT
public:
    ImageLineUtils();

    void Draw(cv::Mat& image, const IppConfig& config, const custom::ImageLineArray& message,
              bool frameIdMatches) const;
    void PrintImageLineArrayStatus(signed char status) const;

Q_SIGNALS:
    void AddImageLineArrayStatus(rviz::StatusProperty::Level level, const QString& key, const QString& text) const;
    void RemoveImageLineArrayStatus(const QString& key) const;

private:
    // False when the line is not drawn; status collects what is wrong with it.
    bool GetImageLineStatus(const cv::Mat& image, const custom::ImageLine& line, signed char& status) const;
    void DrawSolidLine(cv::Mat& image, const LineParameters& line, const DisplayProperties& properties) const;
    void DrawDottedLine(cv::Mat& image, const LineParameters& line, const DisplayProperties& properties) const;
    // Polyline through the curve's points from firstRow to lastRow, every 12 rows, within the canvas.
    void DrawCurve(cv::Mat& image, const LineParameters& line, int firstRow, int lastRow,
                   const DisplayProperties& properties) const;
    void DrawLabelForLines(cv::Mat& image, const IppConfig& config, const custom::ImageLine& line,
                           const LineParameters& parameters, bool notConfigured,
                           DisplayProperties& properties) const;

    std::map<signed char, QString> statusTexts;
    // The painter's labels, kept across frames (Draw runs on one overlay thread).
    mutable LabelStrips labelStrips;
};

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

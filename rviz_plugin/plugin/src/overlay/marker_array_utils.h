#ifndef RVIZ_PLUGIN_MARKER_ARRAY_UTILS_H
#define RVIZ_PLUGIN_MARKER_ARRAY_UTILS_H

#include "ipp_config.h"

#include <visualization_msgs/MarkerArray.h>

#include <QObject>
#include <QString>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

#include <opencv2/core.hpp>

#include <functional>
#include <map>
#include <set>
#include <vector>

namespace rviz_plugin {
namespace ImageUtils {

// Draws the 2D subset of markers: positions are image pixels (x, y); z is ignored.
class MarkerArrayUtils : public QObject {
    Q_OBJECT
public:
    MarkerArrayUtils();

    void DrawMarkerArray(cv::Mat& image, const IppConfig& config, const visualization_msgs::MarkerArray& array,
                         bool frameIdMatches);
    void DrawMarker(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);

Q_SIGNALS:
    void AddMarkerArrayStatus(rviz::StatusProperty::Level level, const QString& key, const QString& text) const;
    void RemoveMarkerArrayStatus(const QString& key) const;

private:
    using DrawFunction = std::function<void(cv::Mat&, const IppConfig&, const visualization_msgs::Marker&)>;

    void DrawArrow(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawRectangle(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawRectangleList(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawCircle(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawCircleList(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawLineStrip(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawLineList(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawPoints(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawText(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);
    void DrawTriangles(cv::Mat& image, const IppConfig& config, const visualization_msgs::Marker& marker);

    // The checks shared by the point-list types; false (and a status) when the marker is not drawn.
    bool CheckPoints(const cv::Mat& image, const visualization_msgs::Marker& marker, const QString& emptyText);
    bool CheckColorsNumber(const visualization_msgs::Marker& marker);
    bool CheckScaleXY(const cv::Mat& image, const visualization_msgs::Marker& marker);
    bool CheckPosition(const cv::Mat& image, const geometry_msgs::Point& position);
    bool CheckLineThickness(const visualization_msgs::Marker& marker, const QString& typeName);
    void EmitColorsNumberInvalidSignal(std::size_t colors, std::size_t points);
    void SetMarkerStatus(rviz::StatusProperty::Level level, const QString& text);
    // Calls draw for every point with its colour: its own where the marker has them, else the marker's.
    void ForEachPoint(const visualization_msgs::Marker& marker,
                      const std::function<void(const cv::Point2d&, const cv::Scalar&)>& draw) const;

    std::map<int, DrawFunction> drawFunctions;
    std::size_t markerIndex = 0;
    // Marker keys that carry a status now: only those are removed on the next frame.
    std::set<QString> markerKeysWithStatus;
};

} // namespace ImageUtils
} // namespace rviz_plugin

#endif

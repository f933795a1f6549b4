#include "object_markers.h"

#include "foundation/string_helpers.h"

#include <cmath>

namespace rviz_plugin {
namespace ObjectMarkers {

namespace {
constexpr unsigned infoLineLength = 30;

visualization_msgs::Marker Base(const std_msgs::Header& header, int type)
{
    visualization_msgs::Marker marker;
    marker.header.stamp = header.stamp;
    marker.header.frame_id = header.frame_id;
    marker.type = type;
    marker.action = visualization_msgs::Marker::ADD;
    marker.pose.orientation.w = 1.0;
    return marker;
}

const ObjectClassification* FindRecord(const custom::Object& object, const ObjectArraySettings& settings)
{
    const auto found = settings.classifications.find(object.classification);
    return found == settings.classifications.end() ? nullptr : &found->second;
}

double TopOfBox(const custom::Object& object)
{
    return object.objectBoxCenter.z + 0.5 * object.objectBoxSize.z;
}

std::string Line(const std::string& label, double value)
{
    return label + ": " + ToStringAndTrimZero(value) + "\n";
}
} // namespace

geometry_msgs::Quaternion YawQuaternion(double angle)
{
    geometry_msgs::Quaternion rotation;
    rotation.w = std::cos(angle / 2);
    rotation.z = std::sin(angle / 2);
    return rotation;
}

std_msgs::ColorRGBA ToColorRgba(const QColor& color)
{
    std_msgs::ColorRGBA rgba;
    rgba.r = static_cast<float>(color.redF());
    rgba.g = static_cast<float>(color.greenF());
    rgba.b = static_cast<float>(color.blueF());
    rgba.a = static_cast<float>(color.alphaF());
    return rgba;
}

visualization_msgs::Marker Cube(const custom::Object& object, const std_msgs::Header& header,
                                const ObjectArraySettings& settings)
{
    visualization_msgs::Marker marker = Base(header, visualization_msgs::Marker::CUBE);
    marker.pose.position = object.objectBoxCenter;
    marker.pose.orientation = YawQuaternion(object.objectBoxOrientation);
    marker.scale = object.objectBoxSize;
    const ObjectClassification* record = FindRecord(object, settings);
    if (record != nullptr) {
        marker.color = ToColorRgba(record->cuboidColor);
        marker.color.a = record->cuboidAlpha;
    } else {
        marker.color = ToColorRgba(QColor(Qt::black));
    }
    return marker;
}

visualization_msgs::Marker Polygon(const custom::Object& object, const std_msgs::Header& header,
                                   const ObjectArraySettings& settings)
{
    visualization_msgs::Marker marker = Base(header, visualization_msgs::Marker::LINE_LIST);
    marker.scale.x = 0.1;
    const ObjectClassification* record = FindRecord(object, settings);
    marker.color = ToColorRgba(record != nullptr ? record->polygonColor : QColor(Qt::black));
    const auto& points = object.boxPolygon.points;
    if (points.empty()) {
        return marker;
    }
    const auto toPoint = [](const geometry_msgs::Point32& source) {
        geometry_msgs::Point point;
        point.x = source.x;
        point.y = source.y;
        point.z = source.z;
        return point;
    };
    marker.points.reserve(points.size() * 2);
    marker.points.push_back(toPoint(points.front()));
    for (std::size_t index = 1; index < points.size(); ++index) {
        marker.points.push_back(toPoint(points[index]));
        marker.points.push_back(toPoint(points[index]));
    }
    marker.points.push_back(toPoint(points.front()));
    return marker;
}

double Speed(const custom::Object& object)
{
    const auto& linear = object.velocity.twist.linear;
    return std::sqrt(linear.x * linear.x + linear.y * linear.y);
}

visualization_msgs::Marker Velocity(const custom::Object& object, const std_msgs::Header& header,
                                    const ObjectArraySettings& settings)
{
    visualization_msgs::Marker marker = Base(header, visualization_msgs::Marker::ARROW);
    marker.pose.position.x = object.objectBoxCenter.x;
    marker.pose.position.y = object.objectBoxCenter.y;
    marker.pose.position.z = TopOfBox(object) + 0.5 * settings.arrowScale[2];
    const auto& linear = object.velocity.twist.linear;
    marker.pose.orientation = YawQuaternion(std::atan2(linear.y, linear.x));
    marker.scale.x = settings.arrowScale[0] * Speed(object);
    marker.scale.y = settings.arrowScale[1];
    marker.scale.z = settings.arrowScale[2];
    marker.color = ToColorRgba(settings.arrowColor);
    return marker;
}

visualization_msgs::Marker Text(const custom::Object& object, const std_msgs::Header& header,
                                const ObjectArraySettings& settings, const std::string& text)
{
    visualization_msgs::Marker marker = Base(header, visualization_msgs::Marker::TEXT_VIEW_FACING);
    marker.pose.position.x = object.objectBoxCenter.x;
    marker.pose.position.y = object.objectBoxCenter.y;
    marker.pose.position.z = TopOfBox(object) + settings.arrowScale[2];
    marker.scale.x = marker.scale.y = marker.scale.z = settings.textScale;
    marker.color = ToColorRgba(settings.textColor);
    marker.text = text;
    return marker;
}

std::string GenerateText(const std::string& label, double x, double y, double z)
{
    return label + ": (" + ToStringAndTrimZero(x) + ", " + ToStringAndTrimZero(y) + ", " + ToStringAndTrimZero(z) +
           ")";
}

std::string GetObjectInfoText(const custom::Object& object, const ObjectArraySettings& settings)
{
    std::string text;
    if (settings.showClassification) {
        const ObjectClassification* record = FindRecord(object, settings);
        text += (record != nullptr ? TrimStringBySize(record->text.toStdString(), infoLineLength)
                                   : std::to_string(object.classification)) +
                "\n";
    }
    if (settings.showClassificationConfidence) {
        text += Line("Classification Confidence", std::max(0.0, object.classificationConfidence));
    }
    if (settings.showVelocity) {
        text += Line("Velocity", Speed(object));
    }
    if (settings.showObjectId) {
        text += "Object Id: " + std::to_string(object.objectId) + "\n";
    }
    if (settings.showTrackId) {
        text += "Track Id: " + std::to_string(object.trackId) + "\n";
    }
    if (settings.showExistenceProbability) {
        text += Line("Existence Probability", object.existenceProbability);
    }
    if (settings.showBoxSize) {
        const auto& size = object.objectBoxSize;
        text += GenerateText("Size", size.x, size.y, size.z) + "\n";
    }
    if (settings.showBoxCenter) {
        const auto& center = object.objectBoxCenter;
        text += GenerateText("Center", center.x, center.y, center.z) + "\n";
    }
    if (settings.showBoxOrientation) {
        text += Line("Orientation", object.objectBoxOrientation);
    }
    if (settings.showTextDisplay) {
        for (const std::string& piece : SplitStringToVector(object.textDisplay, infoLineLength)) {
            text += piece + "\n";
        }
    }
    return text;
}

} // namespace ObjectMarkers
} // namespace rviz_plugin

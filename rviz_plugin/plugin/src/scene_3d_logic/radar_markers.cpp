#include "radar_markers.h"

#include "object_markers.h"

#include <cmath>
#include <sstream>

namespace rviz_plugin {

const std::vector<QString>& RadarDetectSettings::InfoFieldNames()
{
    static const std::vector<QString> names = {"id",  "x",   "y",   "vx",  "vy",  "rcs",
                                               "snr", "existProbability", "falseProbability",
                                               "movProperty", "invalidState", "ambiguity"};
    return names;
}

const std::vector<QString>& RadarTrackSettings::InfoFieldNames()
{
    static const std::vector<QString> names = {
        "id",     "lifetime", "x",      "y",      "vx",     "vy",     "ax",
        "ay",     "rcs",      "snr",    "orientation", "length", "width", "height",
        "underpassProbability", "overpassProbability", "existProbability", "movProperty", "trackState", "trackType"};
    return names;
}

namespace RadarMarkers {

namespace {
template <typename Value>
std::string Print(Value value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

std::string Print(uint8_t value)
{
    return std::to_string(static_cast<unsigned>(value));
}
} // namespace

visualization_msgs::Marker Base(const std_msgs::Header& header, const std::string& ns, int type, const QColor& color)
{
    visualization_msgs::Marker marker;
    marker.header.stamp = header.stamp;
    marker.header.frame_id = header.frame_id;
    marker.ns = ns;
    marker.type = type;
    marker.action = visualization_msgs::Marker::ADD;
    marker.pose.orientation.w = 1.0;
    marker.color = ObjectMarkers::ToColorRgba(color);
    return marker;
}

void Park(visualization_msgs::Marker& marker)
{
    marker.color.a = 0;
    marker.pose.position.x = marker.pose.position.y = marker.pose.position.z = parkingPosition;
}

bool IsFinite(const visualization_msgs::Marker& marker)
{
    const auto& p = marker.pose.position;
    const auto& q = marker.pose.orientation;
    const auto& s = marker.scale;
    for (double value : {p.x, p.y, p.z, q.x, q.y, q.z, q.w, s.x, s.y, s.z}) {
        if (!std::isfinite(value)) {
            return false;
        }
    }
    for (const auto& point : marker.points) {
        if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) {
            return false;
        }
    }
    return true;
}

void SetArrow(visualization_msgs::Marker& marker, const RadarArrowSettings& arrow, double x, double y, double z,
              float vx, float vy)
{
    const float speed = std::sqrt(vx * vx + vy * vy);
    marker.color.a = speed >= minimumArrowSpeed ? static_cast<float>(arrow.color.alphaF()) : 0.0F;
    marker.scale.x = static_cast<double>(speed * arrow.scale[0]);
    marker.scale.y = arrow.scale[1];
    marker.scale.z = arrow.scale[2];
    marker.pose.position.x = x;
    marker.pose.position.y = y;
    marker.pose.position.z = z;
    marker.pose.orientation = ObjectMarkers::YawQuaternion(std::atan2(static_cast<double>(vy), static_cast<double>(vx)));
}

void SetText(visualization_msgs::Marker& marker, const std::string& text, const QColor& color)
{
    marker.color = ObjectMarkers::ToColorRgba(color);
    if (text.empty()) {
        marker.color.a = 0;
        marker.text = "-";
    } else {
        marker.text = text;
    }
}

std::string InfoText(const std::vector<QString>& names, const std::vector<bool>& ticked,
                     const std::vector<std::string>& values)
{
    std::string text;
    for (std::size_t index = 0; index < names.size() && index < ticked.size() && index < values.size(); ++index) {
        if (!ticked[index]) {
            continue;
        }
        if (!text.empty()) {
            text += "\n";
        }
        text += names[index].toStdString() + ": " + values[index];
    }
    return text;
}

std::vector<std::string> DetectFieldTexts(const custom::RadarDetect& point)
{
    return {Print(point.id),  Print(point.x),   Print(point.y),   Print(point.vx),
            Print(point.vy),  Print(point.rcs), Print(point.snr), Print(point.existProbability),
            Print(point.falseProbability), Print(point.movProperty), Print(point.invalidState),
            Print(point.ambiguity)};
}

std::vector<std::string> TrackFieldTexts(const custom::RadarTrack& track)
{
    return {Print(track.id),     Print(track.lifetime), Print(track.x),      Print(track.y),
            Print(track.vx),     Print(track.vy),       Print(track.ax),     Print(track.ay),
            Print(track.rcs),    Print(track.snr),      Print(track.orientation), Print(track.length),
            Print(track.width),  Print(track.height),   Print(track.underpassProbability),
            Print(track.overpassProbability), Print(track.existProbability), Print(track.movProperty),
            Print(track.trackState), Print(track.trackType)};
}

std::vector<geometry_msgs::Point> TrackBoxPoints(const custom::RadarTrack& track)
{
    const double a = track.length / 2.0;
    const double b = track.width / 2.0;
    const double c = track.height / 2.0;
    const double corners[4][2] = {{-a, -b}, {-a, b}, {a, b}, {a, -b}};
    std::vector<geometry_msgs::Point> points;
    const auto add = [&points](double x, double y, double z) {
        geometry_msgs::Point point;
        point.x = x;
        point.y = y;
        point.z = z;
        points.push_back(point);
    };
    const auto rectangle = [&](double z) {
        for (int corner = 0; corner < 4; ++corner) {
            const double* from = corners[corner];
            const double* to = corners[(corner + 1) % 4];
            add(from[0], from[1], z);
            add(to[0], to[1], z);
        }
    };
    if (track.height == 0.0F) {
        rectangle(0);
        return points;
    }
    rectangle(-c);
    rectangle(c);
    for (const auto& corner : corners) {
        add(corner[0], corner[1], -c);
        add(corner[0], corner[1], c);
    }
    return points;
}

} // namespace RadarMarkers
} // namespace rviz_plugin

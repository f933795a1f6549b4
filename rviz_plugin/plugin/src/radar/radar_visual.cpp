#include "radar_visual.h"

#include "scene_3d_logic/radar_markers.h"

#ifndef Q_MOC_RUN
#include <rviz/default_plugin/markers/marker_base.h>
#endif

namespace rviz_plugin {

RadarVisual::RadarVisual(const std::vector<RadarFieldLimit>& limits) : statusRecord(limits)
{
}

RadarVisual::~RadarVisual() = default;

void RadarVisual::SetStatus(Level level, const QString& name, const QString& text)
{
    Q_EMIT AddStatus(static_cast<rviz::StatusProperty::Level>(level), name, text);
}

void RadarVisual::DeleteStatus(const QString& name)
{
    Q_EMIT DelStatus(name);
}

void RadarVisual::InitStatus()
{
    statusRecord.Reset();
}

void RadarVisual::ResetCurrStatus()
{
    statusRecord.ResetCurrStatus();
}

void RadarVisual::Reset()
{
    InitStatus();
    passedIndices.clear();
    InitMarkers();
}

void RadarVisual::UpdateStatus()
{
    statusRecord.UpdateStatus(*this);
}

bool RadarVisual::IsAllStatusEmpty() const
{
    return statusRecord.IsAllStatusEmpty();
}

void RadarVisual::Send(rviz::MarkerBase& marker, const visualization_msgs::Marker& message)
{
    if (RadarMarkers::IsFinite(message)) {
        marker.setMessage(message);
        return;
    }
    visualization_msgs::Marker parked = message;
    parked.points.clear();
    parked.pose.orientation = geometry_msgs::Quaternion();
    parked.pose.orientation.w = 1;
    parked.scale.x = parked.scale.y = parked.scale.z = 1;
    RadarMarkers::Park(parked);
    marker.setMessage(parked);
}

void RadarVisual::ParkLeftovers(MarkerSet& set, visualization_msgs::Marker marker, std::size_t count)
{
    RadarMarkers::Park(marker);
    for (std::size_t index = count; index < set.used && index < set.markers.size(); ++index) {
        marker.id = static_cast<int>(index);
        set.markers[index]->setMessage(marker);
    }
    set.used = count;
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_RADAR_VISUAL_H
#define RVIZ_PLUGIN_RADAR_VISUAL_H

#include "scene_3d_logic/radar_checks.h"
#include "scene_3d_logic/status_sink.h"

#include <QObject>

#include "scene_3d_logic/radar_markers.h"

#ifndef Q_MOC_RUN
#include <OgreSceneNode.h>
#include <rviz/properties/status_property.h>
#include <visualization_msgs/Marker.h>
#endif

#include <memory>
#include <vector>

namespace Ogre {
class SceneNode;
}
namespace rviz {
class DisplayContext;
class MarkerBase;
} // namespace rviz

namespace rviz_plugin {

// What the radar visuals share: the field statuses of a message, told to the display through
// AddStatus and DelStatus, and the fixed sets of markers that are reused from message to message.
class RadarVisual : public QObject, public StatusSink {
    Q_OBJECT
public:
    explicit RadarVisual(const std::vector<RadarFieldLimit>& limits);
    ~RadarVisual() override;

    virtual void Init(rviz::DisplayContext* context, Ogre::SceneNode* sceneNode) = 0;
    virtual void Reset();

    void SetStatus(Level level, const QString& name, const QString& text) override;
    void DeleteStatus(const QString& name) override;

Q_SIGNALS:
    void AddStatus(rviz::StatusProperty::Level level, const QString name, const QString text);
    void DelStatus(const QString name);

protected:
    virtual void InitStatus();
    virtual void ResetCurrStatus();
    virtual void InitMarkers() = 0;
    // Raises or deletes the statuses collected over the message.
    void UpdateStatus();
    bool IsAllStatusEmpty() const;
    // Checks every item, keeps the indices of those that passed; more than maxCount raises the warning.
    template <typename Item, typename Values>
    void CheckItems(const std::vector<Item>& items, std::size_t maxCount, const QString& countStatus,
                    const QString& countText, Values values);
    // Markers of one kind and how many of them the last drawing of that kind used.
    struct MarkerSet {
        std::vector<std::unique_ptr<rviz::MarkerBase>> markers;
        std::size_t used = 0;
    };
    // Parks (invisible, far away) the markers the last drawing used beyond count, and remembers count.
    // Each kind keeps its own count, so that a kind switched off for a while leaves nothing behind.
    static void ParkLeftovers(MarkerSet& set, visualization_msgs::Marker marker, std::size_t count);
    // Hands message to the marker, parked instead when it holds a number that is not finite.
    static void Send(rviz::MarkerBase& marker, const visualization_msgs::Marker& message);
    // A text of the ticked fields for each passed item, at where(item); fields(item) prints every field.
    // Nothing when not shown.
    template <typename Item, typename Where, typename Fields>
    void RenderTexts(bool shown, Ogre::SceneNode* node, const std_msgs::Header& header, const std::vector<Item>& items,
                     const std::vector<QString>& names, const std::vector<bool>& ticked, const QColor& color,
                     float scale, Where where, Fields fields, MarkerSet& set);
    // An arrow of velocity(item) (a pair of x and y components) for each passed item, at where(item).
    template <typename Item, typename Where, typename Velocity>
    void RenderArrows(bool shown, Ogre::SceneNode* node, const std_msgs::Header& header, const std::vector<Item>& items,
                      const std::string& ns, const RadarArrowSettings& arrow, Where where, Velocity velocity,
                      MarkerSet& set);

    rviz::DisplayContext* context = nullptr;
    Ogre::SceneNode* sceneNode = nullptr;
    RadarStatusRecord statusRecord;
    std::vector<std::size_t> passedIndices;
};

template <typename Item, typename Values>
void RadarVisual::CheckItems(const std::vector<Item>& items, std::size_t maxCount, const QString& countStatus,
                             const QString& countText, Values values)
{
    std::size_t count = items.size();
    if (count > maxCount) {
        SetStatus(Warn, countStatus, countText.arg(maxCount));
        count = maxCount;
    } else {
        DeleteStatus(countStatus);
    }
    passedIndices.clear();
    for (std::size_t index = 0; index < count; ++index) {
        ResetCurrStatus();
        statusRecord.Check(values(items[index]));
        if (IsAllStatusEmpty()) {
            passedIndices.push_back(index);
        } else {
            statusRecord.CollectCurrStatus();
        }
    }
    UpdateStatus();
}

template <typename Item, typename Where, typename Fields>
void RadarVisual::RenderTexts(bool shown, Ogre::SceneNode* node, const std_msgs::Header& header,
                              const std::vector<Item>& items, const std::vector<QString>& names,
                              const std::vector<bool>& ticked, const QColor& color, float scale, Where where,
                              Fields fields, MarkerSet& set)
{
    node->setVisible(shown);
    if (!shown) {
        return;
    }
    visualization_msgs::Marker marker =
        RadarMarkers::Base(header, "info", visualization_msgs::Marker::TEXT_VIEW_FACING, color);
    marker.scale.x = marker.scale.y = marker.scale.z = scale;
    for (std::size_t place = 0; place < passedIndices.size(); ++place) {
        const Item& item = items[passedIndices[place]];
        marker.id = static_cast<int>(place);
        marker.pose.position = where(item);
        RadarMarkers::SetText(marker, RadarMarkers::InfoText(names, ticked, fields(item)), color);
        Send(*set.markers[place], marker);
    }
    ParkLeftovers(set, marker, passedIndices.size());
}

template <typename Item, typename Where, typename Velocity>
void RadarVisual::RenderArrows(bool shown, Ogre::SceneNode* node, const std_msgs::Header& header,
                               const std::vector<Item>& items, const std::string& ns, const RadarArrowSettings& arrow,
                               Where where, Velocity velocity, MarkerSet& set)
{
    node->setVisible(shown);
    if (!shown) {
        return;
    }
    visualization_msgs::Marker marker = RadarMarkers::Base(header, ns, visualization_msgs::Marker::ARROW, arrow.color);
    for (std::size_t place = 0; place < passedIndices.size(); ++place) {
        const Item& item = items[passedIndices[place]];
        marker.id = static_cast<int>(place);
        const geometry_msgs::Point position = where(item);
        const std::pair<float, float> components = velocity(item);
        RadarMarkers::SetArrow(marker, arrow, position.x, position.y, position.z, components.first, components.second);
        Send(*set.markers[place], marker);
    }
    ParkLeftovers(set, marker, passedIndices.size());
}

// A point of the scene from its coordinates.
inline geometry_msgs::Point ScenePoint(double x, double y, double z)
{
    geometry_msgs::Point point;
    point.x = x;
    point.y = y;
    point.z = z;
    return point;
}

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_RADAR_VISUAL_H
#define RVIZ_PLUGIN_RADAR_VISUAL_H

#include "scene_3d_logic/radar_checks.h"
#include "scene_3d_logic/status_sink.h"

#include <QObject>

#ifndef Q_MOC_RUN
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

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_RADAR_CHECKS_H
#define RVIZ_PLUGIN_RADAR_CHECKS_H

#include "status_sink.h"

#include <custom/RadarDetect.h>
#include <custom/RadarTrack.h>

#include <QString>

#include <map>
#include <utility>
#include <vector>

namespace rviz_plugin {

// One range check of a radar field: plain bounds, a value on a bound passes and NaN passes.
struct RadarFieldLimit {
    QString name;
    float lower;
    float upper;
    QString text;  // with the bounds filled in

    bool Passes(float value) const { return !(value < lower || value > upper); }
};

// The checks of a detection (x, y, vx, vy) and of a track (x, y, z, vx, vy, ax, ay, length, width,
// height), in the order they run.
const std::vector<RadarFieldLimit>& RadarDetectLimits();
const std::vector<RadarFieldLimit>& RadarTrackLimits();
// The field values of the checks above, in the same order.
std::vector<float> RadarDetectCheckedValues(const custom::RadarDetect& point);
std::vector<float> RadarTrackCheckedValues(const custom::RadarTrack& track);
// Column title -> bounds, for marking bad values red in the detail table.
std::map<QString, std::pair<float, float>> RadarColumnLimits(const std::vector<RadarFieldLimit>& limits);

// The statuses of one message's field checks: the present point's texts, and the texts collected
// over the message, raised or deleted once at its end.
class RadarStatusRecord {
public:
    explicit RadarStatusRecord(const std::vector<RadarFieldLimit>& limits);

    void ResetCurrStatus();
    // Runs every check on the values (in the limits' order); true when all passed.
    bool Check(const std::vector<float>& values);
    bool IsAllStatusEmpty() const;
    // Keeps the faults of a bad point: a later bad point overwrites an earlier one's text of the same
    // field, and a field it did not fail keeps the earlier point's text.
    void CollectCurrStatus();
    // Raises an error per field with a collected text, deletes the others, and empties the texts.
    void UpdateStatus(StatusSink& sink);
    void Reset();

private:
    const std::vector<RadarFieldLimit>& limits;
    std::map<QString, QString> curr;
    std::map<QString, QString> last;
};

} // namespace rviz_plugin

#endif

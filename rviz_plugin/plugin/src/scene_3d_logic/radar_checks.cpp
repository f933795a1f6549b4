#include "radar_checks.h"

namespace rviz_plugin {

namespace {
const QString coordinateText = "The value of %3 is out of range. Use the coordinate compensation function to adjust "
                               "the value. Ensure it is within [%1, %2].";
const QString rangeText = "The value of %3 in the received data exceeds the value range [%1, %2]. Ensure this value "
                          "is within the range.";
const QString heightText = "The value of %3 in the received data exceeds the value range [%1, %2]. Ensure that this "
                           "value is within the range.";

RadarFieldLimit MakeLimit(const QString& name, float lower, float upper, QString text)
{
    text.replace("%3", name);
    return RadarFieldLimit{name, lower, upper, text.arg(QString::number(lower, 'g')).arg(QString::number(upper, 'g'))};
}
} // namespace

const std::vector<RadarFieldLimit>& RadarDetectLimits()
{
    static const std::vector<RadarFieldLimit> limits = {
        MakeLimit("x", -50000.0F, 50000.0F, coordinateText),
        MakeLimit("y", -50000.0F, 50000.0F, coordinateText),
        MakeLimit("vx", -128.0F, 128.0F, rangeText),
        MakeLimit("vy", -64.0F, 64.0F, rangeText),
    };
    return limits;
}

const std::vector<RadarFieldLimit>& RadarTrackLimits()
{
    static const std::vector<RadarFieldLimit> limits = {
        MakeLimit("x", -50000.0F, 50000.0F, coordinateText),  MakeLimit("y", -50000.0F, 50000.0F, coordinateText),
        MakeLimit("z", -50000.0F, 50000.0F, coordinateText),  MakeLimit("vx", -128.0F, 128.0F, rangeText),
        MakeLimit("vy", -64.0F, 64.0F, rangeText),            MakeLimit("ax", -25.6F, 25.55F, rangeText),
        MakeLimit("ay", -25.6F, 25.55F, rangeText),           MakeLimit("length", 0.0F, 204.7F, rangeText),
        MakeLimit("width", 0.0F, 51.1F, rangeText),           MakeLimit("height", 0.0F, 51.1F, heightText),
    };
    return limits;
}

std::vector<float> RadarDetectCheckedValues(const custom::RadarDetect& point)
{
    return {point.x, point.y, point.vx, point.vy};
}

std::vector<float> RadarTrackCheckedValues(const custom::RadarTrack& track)
{
    return {track.x, track.y, track.z, track.vx, track.vy, track.ax, track.ay, track.length, track.width, track.height};
}

std::map<QString, std::pair<float, float>> RadarColumnLimits(const std::vector<RadarFieldLimit>& limits)
{
    std::map<QString, std::pair<float, float>> columns;
    for (const RadarFieldLimit& limit : limits) {
        columns[limit.name] = {limit.lower, limit.upper};
    }
    return columns;
}

RadarStatusRecord::RadarStatusRecord(const std::vector<RadarFieldLimit>& fieldLimits) : limits(fieldLimits)
{
    Reset();
}

void RadarStatusRecord::Reset()
{
    curr.clear();
    last.clear();
    for (const RadarFieldLimit& limit : limits) {
        curr[limit.name];
        last[limit.name];
    }
}

void RadarStatusRecord::ResetCurrStatus()
{
    for (auto& entry : curr) {
        entry.second.clear();
    }
}

bool RadarStatusRecord::Check(const std::vector<float>& values)
{
    bool valid = true;
    for (std::size_t index = 0; index < limits.size() && index < values.size(); ++index) {
        const RadarFieldLimit& limit = limits[index];
        if (limit.Passes(values[index])) {
            curr[limit.name].clear();
        } else {
            curr[limit.name] = limit.text;
            valid = false;
        }
    }
    return valid;
}

bool RadarStatusRecord::IsAllStatusEmpty() const
{
    for (const auto& entry : curr) {
        if (!entry.second.isEmpty()) {
            return false;
        }
    }
    return true;
}

void RadarStatusRecord::CollectCurrStatus()
{
    for (const auto& entry : curr) {
        if (!entry.second.isEmpty()) {
            last[entry.first] = entry.second;
        }
    }
}

void RadarStatusRecord::UpdateStatus(StatusSink& sink)
{
    for (auto& entry : last) {
        if (entry.second.isEmpty()) {
            sink.DeleteStatus(entry.first);
        } else {
            sink.SetStatus(StatusSink::Error, entry.first, entry.second);
            entry.second.clear();
        }
    }
}

} // namespace rviz_plugin

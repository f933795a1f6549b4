#include "detector_status.h"

namespace rviz_plugin {

DetectorStatus::DetectorStatus(QObject* parent) : QObject(parent)
{
    cpuUsageHandler.InitCpuUsageThreshold(0.0);
    cpuUsageHandler.UpdateCpuTimeRecord();
}

DetectedStatus DetectorStatus::Judge(double cpuPercent, const std::map<std::string, double>& durations)
{
    bool slowFrame = false;
    for (const auto& [topic, duration] : durations) {
        slowFrame = slowFrame || duration > maxFrameTime;
    }
    const bool busy = cpuPercent > maxCpuUsage;
    if (slowFrame && busy) {
        return DetectedStatus::CpuAndFrameTimeOverload;
    }
    if (busy) {
        return DetectedStatus::CpuOverload;
    }
    return slowFrame ? DetectedStatus::FrameTimeOverload : DetectedStatus::Normal;
}

void DetectorStatus::Update(const std::map<std::string, double>& durations)
{
    cpuUsageHandler.CalculateCpuUsage();
    Q_EMIT StatusUpdated(Judge(cpuUsageHandler.GetSystemCpuUsage() * 100.0, durations));
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_DETECTOR_STATUS_H
#define RVIZ_PLUGIN_DETECTOR_STATUS_H

#include "foundation/cpu_usage_handler.h"

#include <QObject>

#include <map>
#include <string>

namespace rviz_plugin {

enum class DetectedStatus { Normal = 0, CpuOverload = 1, FrameTimeOverload = 2, CpuAndFrameTimeOverload = 3 };

// Watches a running recording with the evaluation's two limits: a frame that takes more than 33 ms to
// encode, and system CPU usage above 80 %.
class DetectorStatus : public QObject {
    Q_OBJECT

public:
    static constexpr double maxFrameTime = 33.0;
    static constexpr double maxCpuUsage = 80.0;

    explicit DetectorStatus(QObject* parent = nullptr);
    // Samples the CPU and judges the recorders' mean encoding times (milliseconds).
    void Update(const std::map<std::string, double>& durations);
    static DetectedStatus Judge(double cpuPercent, const std::map<std::string, double>& durations);

Q_SIGNALS:
    void StatusUpdated(rviz_plugin::DetectedStatus status);

private:
    Orsa::CpuUsageHandler cpuUsageHandler;
};

} // namespace rviz_plugin

#endif

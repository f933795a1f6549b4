#ifndef ORSA_CPU_USAGE_HANDLER_H
#define ORSA_CPU_USAGE_HANDLER_H

#include <cstdint>
#include <mutex>
#include <string>

namespace Orsa {

// System CPU load from two samples of the first line of the kernel's stat file. One thread samples
// (CalculateCpuUsage); any thread may read the result. An unusable sample reports the threshold.
class CpuUsageHandler {
public:
    explicit CpuUsageHandler(std::string statFile = "/proc/stat");

    // Set once, before the first sample.
    void InitCpuUsageThreshold(double threshold);
    void UpdateCpuTimeRecord();
    void CalculateCpuUsage();
    double GetSystemCpuUsage();
    bool IsCpuStatError();

private:
    std::mutex mutex;
    uint64_t lastIdleTime = 0;
    uint64_t currentIdleTime = 0;
    uint64_t lastIowaitTime = 0;
    uint64_t currentIowaitTime = 0;
    uint64_t lastTotalTime = 0;
    uint64_t currentTotalTime = 0;
    double cpuUsage = 0.0;
    bool cpuStatError = false;
    double cpuUsageThreshold = 0.0;
    std::string statFilePath;
    unsigned statColumnCount = 7;
    unsigned idleColumn = 3;
    unsigned iowaitColumn = 4;
};

} // namespace Orsa

#endif

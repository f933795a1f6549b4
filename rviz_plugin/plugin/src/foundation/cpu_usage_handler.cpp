#include "cpu_usage_handler.h"

#include "logger.h"

#include <fstream>
#include <limits>

namespace Orsa {

namespace {
const char* const logModule = "DecodeSwitch";
constexpr uint64_t maxTime = std::numeric_limits<uint64_t>::max();
} // namespace

CpuUsageHandler::CpuUsageHandler(std::string statFile) : statFilePath(std::move(statFile)) {}

void CpuUsageHandler::InitCpuUsageThreshold(double threshold)
{
    std::lock_guard<std::mutex> lock(mutex);
    cpuUsageThreshold = threshold;
}

void CpuUsageHandler::UpdateCpuTimeRecord()
{
    std::ifstream stat(statFilePath);
    if (!stat.is_open()) {
        Logger::GetInstance().WriteLog(logModule, LogLevel::Error, "Failed to open " + statFilePath);
        return;
    }
    lastIdleTime = currentIdleTime;
    lastIowaitTime = currentIowaitTime;
    lastTotalTime = currentTotalTime;
    currentTotalTime = 0;
    std::string label;
    stat >> label;
    for (unsigned column = 0; column < statColumnCount; ++column) {
        uint64_t value = 0;
        if (!(stat >> value) || value > maxTime - currentTotalTime) {
            break;
        }
        currentTotalTime += value;
        if (column == idleColumn) {
            currentIdleTime = value;
        } else if (column == iowaitColumn) {
            currentIowaitTime = value;
        }
    }
}

void CpuUsageHandler::CalculateCpuUsage()
{
    UpdateCpuTimeRecord();
    std::lock_guard<std::mutex> lock(mutex);
    cpuUsage = cpuUsageThreshold;
    cpuStatError = false;
    const bool currentSumFits = currentIdleTime <= maxTime - currentIowaitTime;
    const bool lastSumFits = lastIdleTime <= maxTime - lastIowaitTime;
    double idleShare = 1.0;
    bool usable = currentTotalTime > lastTotalTime && currentSumFits && lastSumFits &&
                  currentIdleTime + currentIowaitTime >= lastIdleTime + lastIowaitTime;
    if (usable) {
        idleShare = static_cast<double>((currentIdleTime + currentIowaitTime) - (lastIdleTime + lastIowaitTime)) /
                    static_cast<double>(currentTotalTime - lastTotalTime);
        usable = idleShare < 1.0;
    }
    if (usable) {
        cpuUsage = 1.0 - idleShare;
        return;
    }
    cpuStatError = true;
    Logger::GetInstance().WriteLog(
        logModule, LogLevel::Error,
        "Failed to read stat from " + statFilePath + ". current cpu time : " + std::to_string(currentTotalTime) +
            " last cpu time: " + std::to_string(lastTotalTime) + " current idle time: " +
            std::to_string(currentIdleTime) + " last idle time: " + std::to_string(lastIdleTime) +
            " current iowait time: " + std::to_string(currentIowaitTime) +
            " last iowait time: " + std::to_string(lastIowaitTime));
}

double CpuUsageHandler::GetSystemCpuUsage()
{
    std::lock_guard<std::mutex> lock(mutex);
    return cpuUsage;
}

bool CpuUsageHandler::IsCpuStatError()
{
    std::lock_guard<std::mutex> lock(mutex);
    return cpuStatError;
}

} // namespace Orsa

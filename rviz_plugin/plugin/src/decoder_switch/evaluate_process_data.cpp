#include "evaluate_process_data.h"

namespace rviz_plugin {

void EvaluateProcessData::UpdateResultData(double decodeMs, double convertMs, double cpuPercent)
{
    decodeTime = decodeMs;
    convertTime = convertMs;
    cpuUsage = cpuPercent;
    ++finishedTimes;
}

bool EvaluateProcessData::IsEvaluatedSuccess() const
{
    return decodeTime <= decodeTimeLimit && convertTime <= convertTimeLimit && cpuUsage < cpuUsageLimit;
}

bool EvaluateProcessData::UpdateNextDecodeNums(bool passed)
{
    if (passed) {
        resultNum = currentNum;
        lowerNum = static_cast<uint16_t>(currentNum + 1);
    } else {
        ++overTimes;
        upperNum = currentNum;
    }
    if (lowerNum >= upperNum) {
        return true;
    }
    currentNum = static_cast<uint16_t>(lowerNum + (upperNum - lowerNum) / 2);
    return false;
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_EVALUATE_PROCESS_DATA_H
#define RVIZ_PLUGIN_EVALUATE_PROCESS_DATA_H

#include <cstdint>

namespace rviz_plugin {

// The state of one search for the largest number of channels a decoder keeps up with: a binary
// search between lowerNum (every smaller count passed) and upperNum (that count failed, or the
// search's ceiling), and the limits a round must keep.
struct EvaluateProcessData {
    static constexpr uint16_t startUpperNum = 17;

    uint16_t lowerNum = 1;
    uint16_t upperNum = startUpperNum;
    uint16_t currentNum = 1;
    // The largest count that passed; 0 while none has.
    uint16_t resultNum = 0;
    unsigned overTimes = 0;
    unsigned finishedTimes = 0;
    // Measured in the last round: mean decode time and mean conversion time per frame (ms), mean CPU (%).
    double decodeTime = 0.0;
    double convertTime = 0.0;
    double cpuUsage = 0.0;
    double decodeTimeLimit = 33.0;
    double convertTimeLimit = 33.0;
    double cpuUsageLimit = 80.0;

    void UpdateResultData(double decodeMs, double convertMs, double cpuPercent);
    // Each per-frame time at most its limit, and the processor below its limit.
    bool IsEvaluatedSuccess() const;
    // Moves the search on after a round; true when it has ended.
    bool UpdateNextDecodeNums(bool passed);
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_RECORD_DATA_EVALUATOR_H
#define RVIZ_PLUGIN_RECORD_DATA_EVALUATOR_H

#include "encoder_type.h"
#include "record_data_manager.h"

#include "foundation/cpu_usage_handler.h"

#include <QObject>
#include <QTimer>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// The binary search over channel counts: from 1, up while rounds pass, down where they fail.
struct ChannelSearch {
    int lowerNum = 1;
    int upperNum = 1;
    int currentNum = 1;

    void Init(int topicCount)
    {
        lowerNum = 1;
        upperNum = topicCount + 1;
        currentNum = 1;
    }
    // Takes the outcome of the round at currentNum; false when the search has ended.
    bool Next(bool passed)
    {
        if (passed) {
            lowerNum = currentNum + 1;
        } else {
            upperNum = currentNum;
        }
        if (lowerNum >= upperNum) {
            return false;
        }
        currentNum = lowerNum + (upperNum - lowerNum) / 2;
        return true;
    }
};

// Finds how many of the selected channels this machine records at once: rounds of test recordings with a
// number of channels chosen by binary search, each round passing when no recorder's mean encoding time is
// above 25 ms and the mean system CPU usage of its 60 samples (50 ms apart) is below 80 %.
class RecordDataEvaluator : public QObject {
    Q_OBJECT

public:
    static constexpr int sampleInterval = 50;
    static constexpr int sampleCount = 60;
    static constexpr double maxEncodeTime = 25.0;
    static constexpr double maxCpuUsage = 80.0;

    explicit RecordDataEvaluator(QObject* parent = nullptr);
    ~RecordDataEvaluator() override;

    // Test recordings go into folder and are removed after each round.
    void Start(bool useHardware, const std::string& folder, const std::vector<std::string>& topics,
               std::pair<int, int> resolution);
    void CancelEvaluation();

    const std::map<std::string, EncoderType>& GetTopicEncoderMap() const { return topicEncoderMap; }
    // The most channels that passed (0 when none did).
    int GetRetEvaNums() const { return retEvaNums; }
    // The mean encoding time of each recorder in the last round, in milliseconds.
    const std::map<std::string, double>& GetAvgEvaluationTimes() const { return avgEvaluationTimes; }
    // The rounds a search over this many channels takes at most.
    static int MaxRounds(int topicCount);

    // The search, without recording: the outcome of a round, then whether the search goes on.
    void InitEvaluateNums(int topicCount);
    bool CalcEvaluateNums(bool passed);
    int GetCurrentNum() const { return search.currentNum; }
    // A round passes when no encoding time is above the limit and the mean CPU usage (percent) is below its own.
    static bool IsRoundPassed(const std::vector<double>& cpuSamples, const std::map<std::string, double>& times);

Q_SIGNALS:
    void EvaluateFinished(bool allPassed);
    // Progress of the whole evaluation: percent done and seconds left at most.
    void EvaluateProgress(int percent, int secondsLeft);

private:
    void Clear();
    void CreateMultiEncoder();
    void StartUpdate();
    void StopUpdate();
    void UpdateOnTime();
    void UpdateEvaluateResult(bool passed);
    void UpdateEvaluation();
    void CompleteEvaluation();
    void ClearEncoder();

    Orsa::CpuUsageHandler cpuUsageHandler;
    RecordDataManager manager;
    QTimer sampleTimer;
    std::vector<double> cpuSamples;
    ChannelSearch search;
    int retEvaNums = 0;
    int roundsDone = 0;
    bool useHardware = false;
    std::string folder;
    std::vector<std::string> topics;
    std::pair<int, int> resolution{854, 480};
    std::map<std::string, EncoderType> topicEncoderMap;
    std::map<std::string, double> avgEvaluationTimes;
};

} // namespace rviz_plugin

#endif

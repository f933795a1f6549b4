#include "record_data_evaluator.h"

#include "foundation/logger.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <numeric>

namespace rviz_plugin {

namespace {
constexpr double cpuThresholdShare = 0.8;
constexpr double percent = 100.0;
constexpr double noSampleUsage = 100.0;
} // namespace

RecordDataEvaluator::RecordDataEvaluator(QObject* parent) : QObject(parent)
{
    cpuUsageHandler.InitCpuUsageThreshold(cpuThresholdShare);
    manager.Initialize();
    sampleTimer.setInterval(sampleInterval);
    connect(&sampleTimer, &QTimer::timeout, this, &RecordDataEvaluator::UpdateOnTime);
}

RecordDataEvaluator::~RecordDataEvaluator()
{
    CancelEvaluation();
}

int RecordDataEvaluator::MaxRounds(int topicCount)
{
    int most = 0;
    for (int capacity = 0; capacity <= topicCount; ++capacity) {
        ChannelSearch trial;
        trial.Init(topicCount);
        int rounds = 1;
        while (trial.Next(trial.currentNum <= capacity)) {
            ++rounds;
        }
        most = std::max(most, rounds);
    }
    return most;
}

void RecordDataEvaluator::Clear()
{
    StopUpdate();
    ClearEncoder();
    cpuSamples.clear();
    topicEncoderMap.clear();
    avgEvaluationTimes.clear();
    retEvaNums = 0;
    roundsDone = 0;
}

void RecordDataEvaluator::Start(bool hardware, const std::string& evaluationFolder,
                                const std::vector<std::string>& selectedTopics, std::pair<int, int> size)
{
    Clear();
    useHardware = hardware;
    folder = evaluationFolder;
    topics = selectedTopics;
    resolution = size;
    InitEvaluateNums(static_cast<int>(topics.size()));
    cpuUsageHandler.CalculateCpuUsage();
    Orsa::Logger::GetInstance().WriteLog(
        "RecordVideoDataTool", Orsa::LogLevel::Info,
        "The CPU usage before video recording evaluation is " +
            std::to_string(static_cast<int>(std::lround(cpuUsageHandler.GetSystemCpuUsage() * percent))) + "%.");
    Q_EMIT EvaluateProgress(0, MaxRounds(static_cast<int>(topics.size())) * sampleCount * sampleInterval / 1000);
    CreateMultiEncoder();
    StartUpdate();
}

void RecordDataEvaluator::InitEvaluateNums(int topicCount)
{
    search.Init(topicCount);
}

void RecordDataEvaluator::CreateMultiEncoder()
{
    const std::vector<std::string> channels(topics.begin(),
                                            topics.begin() + std::min<std::size_t>(search.currentNum, topics.size()));
    manager.SetTopicResolutionMap(resolution);
    manager.SetTopicPerformanceVec(channels);
    manager.StartRecord(folder, true, useHardware, {});
}

void RecordDataEvaluator::StartUpdate()
{
    cpuSamples.clear();
    cpuUsageHandler.UpdateCpuTimeRecord();
    manager.GetRecordingDuration();  // the times of this round start now
    sampleTimer.start();
}

void RecordDataEvaluator::StopUpdate()
{
    sampleTimer.stop();
}

void RecordDataEvaluator::UpdateOnTime()
{
    cpuUsageHandler.CalculateCpuUsage();
    cpuSamples.push_back(cpuUsageHandler.GetSystemCpuUsage() * percent);
    if (static_cast<int>(cpuSamples.size()) < sampleCount) {
        return;
    }
    StopUpdate();
    avgEvaluationTimes = manager.GetRecordingDuration();
    // A recorder that did not start counts as a failed round (a folder that cannot be written, for one).
    const auto files = manager.GetRecordedFiles();
    bool allStarted = !files.empty();
    for (const auto& [topic, file] : files) {
        allStarted = allStarted && !file.empty();
    }
    UpdateEvaluateResult(allStarted && IsRoundPassed(cpuSamples, avgEvaluationTimes));
}

bool RecordDataEvaluator::IsRoundPassed(const std::vector<double>& samples, const std::map<std::string, double>& times)
{
    for (const auto& [topic, time] : times) {
        if (time > maxEncodeTime) {
            return false;
        }
    }
    const double mean = samples.empty()
                            ? noSampleUsage
                            : std::accumulate(samples.begin(), samples.end(), 0.0) / static_cast<double>(samples.size());
    return mean < maxCpuUsage;
}

void RecordDataEvaluator::UpdateEvaluateResult(bool passed)
{
    ++roundsDone;
    if (passed) {
        topicEncoderMap = manager.GetEncoderTypes();
        retEvaNums = search.currentNum;
    }
    const int total = MaxRounds(static_cast<int>(topics.size()));
    const int done = std::min(roundsDone, total);
    Q_EMIT EvaluateProgress(done * 100 / std::max(total, 1), (total - done) * sampleCount * sampleInterval / 1000);
    if (CalcEvaluateNums(passed)) {
        UpdateEvaluation();
    } else {
        CompleteEvaluation();
    }
}

bool RecordDataEvaluator::CalcEvaluateNums(bool passed)
{
    return search.Next(passed);
}

void RecordDataEvaluator::UpdateEvaluation()
{
    StopUpdate();
    ClearEncoder();
    CreateMultiEncoder();
    StartUpdate();
}

void RecordDataEvaluator::ClearEncoder()
{
    const auto files = manager.GetRecordedFiles();
    manager.CloseRecord();
    for (const auto& [topic, file] : files) {
        std::error_code ignored;
        if (!file.empty()) {
            std::filesystem::remove(file, ignored);
        }
    }
}

void RecordDataEvaluator::CompleteEvaluation()
{
    ClearEncoder();
    Q_EMIT EvaluateFinished(retEvaNums == static_cast<int>(topics.size()));
}

void RecordDataEvaluator::CancelEvaluation()
{
    StopUpdate();
    ClearEncoder();
}

} // namespace rviz_plugin

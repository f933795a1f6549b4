#include "frequency_tool.h"

namespace rviz_plugin {

namespace {
constexpr int refreshPeriodMs = 1000;
} // namespace

FrequencyTool::FrequencyTool(const std::vector<MessageId>& ids) : messageIds(ids) {}

void FrequencyTool::Start()
{
    for (MessageId id : messageIds) {
        messageCounts[id] = 0;
        countMutexes[id] = std::make_unique<std::mutex>();
    }
    connect(&timer, &QTimer::timeout, this, &FrequencyTool::RefreshFrequency);
    timer.start(refreshPeriodMs);
}

void FrequencyTool::OnMessageReceived(MessageId id)
{
    const auto found = countMutexes.find(id);
    if (found == countMutexes.end()) {
        return;
    }
    std::lock_guard<std::mutex> lock(*found->second);
    ++messageCounts[id];
}

void FrequencyTool::OnDetectedSingleFrameProcessingTime(float milliseconds)
{
    std::lock_guard<std::mutex> lock(mutex);
    processingTimeSum += milliseconds;
    ++processedFrameCount;
}

void FrequencyTool::RefreshFrequency()
{
    std::lock_guard<std::mutex> lock(mutex);
    for (const auto& countMutex : countMutexes) {
        std::lock_guard<std::mutex> countLock(*countMutex.second);
        messageFrequencies[countMutex.first] = messageCounts[countMutex.first];
        messageCounts[countMutex.first] = 0;
    }
    for (const auto& frequency : messageFrequencies) {
        EmitFrequency(frequency.first, frequency.second);
    }
    if (processedFrameCount == 0) {
        return;
    }
    averageProcessingTime = processingTimeSum / static_cast<float>(processedFrameCount);
    processingTimeSum = 0.0F;
    processedFrameCount = 0;
    Q_EMIT ProcessingTimeChanged(averageProcessingTime);
    if (averageProcessingTime > processingTimeLimit) {
        Q_EMIT DetectedPerformanceProblem();
    }
}

void FrequencyTool::EmitFrequency(MessageId id, unsigned hertz)
{
    switch (id) {
    case Image:
        Q_EMIT ImageFrequencyChanged(hertz);
        break;
    case Objects:
        Q_EMIT ObjectArrayFrequencyChanged(hertz);
        break;
    case TrafficLights:
        Q_EMIT ImageRectangleArrayFrequencyChanged(hertz);
        break;
    case RoadLines:
        Q_EMIT ImageLineArrayFrequencyChanged(hertz);
        break;
    case Freespace:
        Q_EMIT ImageFreespaceFrequencyChanged(hertz);
        break;
    case SemanticSegmentation:
        Q_EMIT ImageSemanticSegmentationFrequencyChanged(hertz);
        break;
    case MarkerArray:
        Q_EMIT MarkerArrayFrequencyChanged(hertz);
        break;
    }
}

} // namespace rviz_plugin

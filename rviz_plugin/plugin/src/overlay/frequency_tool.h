#ifndef RVIZ_PLUGIN_FREQUENCY_TOOL_H
#define RVIZ_PLUGIN_FREQUENCY_TOOL_H

#include "message_id.h"

#include <QObject>
#include <QTimer>

#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace rviz_plugin {

// Turns the overlay node's events into per-input rates and the mean drawing time, once a second.
class FrequencyTool : public QObject {
    Q_OBJECT
public:
    explicit FrequencyTool(const std::vector<MessageId>& ids);

    void Start();
    float GetProcessingTimeLimit() const { return processingTimeLimit; }

public Q_SLOTS:
    void OnMessageReceived(rviz_plugin::MessageId id);
    void OnDetectedSingleFrameProcessingTime(float milliseconds);
    void RefreshFrequency();

Q_SIGNALS:
    void ProcessingTimeChanged(float milliseconds);
    void DetectedPerformanceProblem();
    void ImageFrequencyChanged(const unsigned& hertz);
    void ObjectArrayFrequencyChanged(const unsigned& hertz);
    void ImageRectangleArrayFrequencyChanged(const unsigned& hertz);
    void ImageLineArrayFrequencyChanged(const unsigned& hertz);
    void ImageFreespaceFrequencyChanged(const unsigned& hertz);
    void ImageSemanticSegmentationFrequencyChanged(const unsigned& hertz);
    void MarkerArrayFrequencyChanged(const unsigned& hertz);

private:
    void EmitFrequency(MessageId id, unsigned hertz);

    const std::vector<MessageId>& messageIds;
    std::map<MessageId, unsigned> messageCounts;
    std::map<MessageId, unsigned> messageFrequencies;
    std::map<MessageId, std::unique_ptr<std::mutex>> countMutexes;
    unsigned processedFrameCount = 0;
    float processingTimeSum = 0.0F;
    float averageProcessingTime = 0.0F;
    const float processingTimeLimit = 33.0F;
    std::mutex mutex;
    QTimer timer;
};

} // namespace rviz_plugin

#endif

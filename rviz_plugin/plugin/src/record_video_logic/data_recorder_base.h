#ifndef RVIZ_PLUGIN_DATA_RECORDER_BASE_H
#define RVIZ_PLUGIN_DATA_RECORDER_BASE_H

#include "encoder.h"
#include "encoder_type.h"
#include "tick_schedule.h"

#include <QImage>
#include <QObject>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

class QThread;
class QTimer;

namespace rviz_plugin {

// Where and how a recorder writes its file.
struct RecordSettings {
    std::string folder;
    int width = 854;
    int height = 480;
    EncoderType encoderType = EncoderType::Software;
};

// One source recorded into one video file at a steady 30 pictures a second, whatever the rate of the source.
// A timer thread beats; each beat is counted at once (OnTimeout, on the timer thread) and handled on the
// encoding thread (Recording), which owns the encoder. The difference between the two counts is the backlog.
// Statuses: 0 closed, 1 previewing (the first picture becomes the preview image), 2 recording.
class DataRecorderBase : public QObject {
    Q_OBJECT

public:
    enum RecordStatus { closed = 0, previewing = 1, recording = 2 };

    explicit DataRecorderBase(QObject* parent = nullptr);
    ~DataRecorderBase() override;

    void Initialize(const std::string& recordTopic);
    // Makes the encoder for the settings, falling back along the encoder types until one works.
    virtual bool ReadyConfig(const RecordSettings& settings);
    // Starts the subscription and the two threads.
    virtual void StartThread();
    // Stops the beat, encodes the beats still waiting, and finishes the file so that it is playable.
    virtual void ShutDown();
    // The first half of ShutDown: no more beats or messages. Recorders stopped together this way then
    // encode what they still hold side by side.
    void StopBeat();
    virtual std::pair<int, int> GetDataResolution() = 0;
    virtual QImage GetPreviewImage() = 0;
    virtual bool GetIsPreviewImageReady() const = 0;

    // Opens the file (on the encoding thread) and begins recording: status 2 when that worked.
    void StartRecordData();
    void StartPreviewData() { recordStatus = previewing; }
    void CloseRecordData() { recordStatus = closed; }
    bool IsRecording() const { return recordStatus == recording; }
    bool IsPreviewing() const { return recordStatus == previewing; }
    EncoderType GetEncoderType() const { return encoderType; }
    bool GetIsActive() const { return isActive; }
    bool GetIsStartSuccess() const { return isStartSuccess; }
    const std::string& GetTopic() const { return topic; }
    // The mean encoding time in milliseconds since the last call, then the sums start again.
    double GetEncodingDuration();
    // The file being written ("" before the start).
    std::string GetFileName() const;
    // Pictures handed to the encoder; read it after ShutDown.
    long long GetEncodedFrames() const;

    static constexpr int tickInterval = 33;
    static constexpr int ticksPerSecond = 30;
    static constexpr int maxQueuedTicks = 6;

protected:
    virtual void OnTimeout() = 0;
    virtual void Recording() = 0;
    // On the encoding thread: opens the file; true when the encoder is still initialised after it.
    virtual bool Start() = 0;
    virtual void StartSubscriber() = 0;
    virtual void ShutDownSubscriber() = 0;
    // A derived destructor calls ShutDown() itself: the base one can no longer reach the subscriber.

    // The file Start opens, as GetFileName tells it to other threads.
    void SetFileName(const std::string& name);
    // On the encoding thread: the backlog warning when more than maxQueuedTicks beats wait.
    void WarnIfStacked(int queued) const;
    // On the encoding thread: encodes the picture and counts its time; a picture that cannot be encoded ends
    // this recorder (the others go on).
    template <typename Picture>
    bool EncodeTimed(const Picture& picture)
    {
        const auto begin = std::chrono::steady_clock::now();
        if (!encoder->Encode(picture)) {
            StopAfterFailure();
            return false;
        }
        AddEncodingTime(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
        return true;
    }

    std::atomic<int> recordStatus{closed};
    std::atomic<bool> isActive{false};
    std::string topic;
    std::mutex encodingMutex;
    double encodeTimeSum = 0.0;
    unsigned encodeCount = 0;
    EncoderType encoderType = EncoderType::Software;
    std::unique_ptr<Encoder> encoder;
    RecordSettings settings;

private:
    void InitThread();
    void ArmNextTick();
    void AddEncodingTime(double milliseconds);
    void StopAfterFailure();

    QThread* encodingThread = nullptr;
    QThread* timerThread = nullptr;
    QTimer* tickTimer = nullptr;
    QObject* encodingContext = nullptr;
    TickSchedule schedule{ticksPerSecond};
    std::atomic<bool> isStartSuccess{false};
    mutable std::mutex fileMutex;
    std::string fileName;
    bool threadsStarted = false;
};

} // namespace rviz_plugin

#endif

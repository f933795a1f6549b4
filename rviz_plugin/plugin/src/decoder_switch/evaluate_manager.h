#ifndef RVIZ_PLUGIN_EVALUATE_MANAGER_H
#define RVIZ_PLUGIN_EVALUATE_MANAGER_H

#include "decode_performance_evaluate.h"
#include "evaluate_history.h"
#include "evaluate_process_data.h"
#include "video_stream_loader.h"

#include "foundation/cpu_usage_handler.h"

#ifndef Q_MOC_RUN
#include <custom/DecoderInfo.h>
#endif

#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <deque>
#include <map>
#include <memory>
#include <thread>
#include <vector>

namespace rviz_plugin {

// Limits of the decoding evaluation: explicit so that tests and benchmarks can shorten them.
struct EvaluateSettings {
    std::chrono::milliseconds roundDuration{10000};
    std::chrono::milliseconds cpuSamplePeriod{500};
    uint16_t upperNum = EvaluateProcessData::startUpperNum;
};

// Drives the decoding evaluation: for each chosen pair of decoder and video format, rounds of
// DecodePerformanceEvaluate channels (a binary search on their number), each judged on its mean
// decode and conversion times per frame and the processor's mean load. Results go to the history
// file. Runs on the GUI thread; the channels and the display thread are its own.
class EvaluateManager : public QObject {
    Q_OBJECT
public:
    struct Format {
        QString name;
        std::string file;
    };
    using Settings = EvaluateSettings;

    static const std::vector<Format>& Formats();
    static constexpr const char* recordFile = "config/decode_evaluate_record.json";
    static constexpr const char* videoDataDirectory = "rviz_plugin/share/rviz_plugin/media/video_data/";

    explicit EvaluateManager(Settings settings = Settings());
    ~EvaluateManager() override;

    // Finds the install root (or takes root), reads the history and the stream files; false with
    // the log text when the root or the history cannot be read. Missing streams only fail their
    // format's evaluation later.
    bool Initialize(const std::string& root = std::string());
    bool HasDecodeHistoryRecord() const { return history != nullptr && history->HasRecord(); }
    EvaluateHistory* GetHistory() const { return history.get(); }
    // Each decoder mode tried once: true when it can be created here.
    std::map<int, bool> CheckDecoderDevice() const;
    bool IsEvaluating() const { return evaluating; }
    // Seconds the queued evaluations take at most.
    int EstimatedSeconds() const;

public Q_SLOTS:
    // Evaluates each (decoder mode, format index) in turn.
    void Start(const std::vector<std::pair<int, int>>& pairs);
    void Stop();

Q_SIGNALS:
    void ItemStarted(int mode, int format);
    // channels is the largest count that kept up (0: not even one), or -1 when the evaluation failed.
    void ItemFinished(int mode, int format, int channels);
    void Progress(int percent, int secondsLeft);
    void ReadFailed(const QString& text);
    void Finished();

private Q_SLOTS:
    void UpdateCpuUsage();
    void UpdateDecodingChannelsNumber();

private:
    void UpdateEvaluateQueue();
    bool StartRound();
    void StopRound();
    double GetAvgCpuUsage() const;
    void DisplayThread();

    Settings settings;
    std::string root;
    VideoStreamLoader loader;
    bool streamsLoaded = false;
    std::unique_ptr<EvaluateHistory> history;
    Orsa::CpuUsageHandler cpuUsageHandler;
    std::vector<double> cpuSamples;
    QTimer cpuTimer;
    QTimer roundTimer;
    QTimer progressTimer;
    std::deque<std::pair<int, int>> queue;
    std::pair<int, int> current{0, 0};
    EvaluateProcessData data;
    std::vector<std::unique_ptr<DecodePerformanceEvaluate>> channels;
    std::atomic<bool> displayRunning{false};
    std::thread displayThread;
    bool evaluating = false;
    std::chrono::steady_clock::time_point startTime;
    int totalSeconds = 0;
};

} // namespace rviz_plugin

#endif

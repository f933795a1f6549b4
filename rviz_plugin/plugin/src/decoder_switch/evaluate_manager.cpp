#include "evaluate_manager.h"

#include "decoder.h"
#include "decoder_switch_result.h"
#include "video_decoder.h"

#include "foundation/logger.h"
#include "foundation/path_utils.h"

#include <cmath>
#include <numeric>

namespace rviz_plugin {

namespace {
const char* const logModule = "KoraVision";
constexpr int progressPeriodMs = 500;
constexpr auto displayPeriod = std::chrono::milliseconds(33);

void Log(Orsa::LogLevel level, const std::string& text)
{
    Orsa::Logger::GetInstance().WriteLog(logModule, level, text);
}

// Rounds a search of upperNum needs at most: the first count, then halving.
int RoundsPerSearch(uint16_t upperNum)
{
    return 1 + static_cast<int>(std::ceil(std::log2(std::max<int>(upperNum, 2))));
}
} // namespace

const std::vector<EvaluateManager::Format>& EvaluateManager::Formats()
{
    static const std::vector<Format> formats = {{"1080p | 30 fps", "1080p_30hz_data.h265"},
                                                {"4k | 30 fps", "4k_30hz_data.h265"}};
    return formats;
}

EvaluateManager::EvaluateManager(Settings evaluationSettings) : settings(evaluationSettings)
{
    connect(&cpuTimer, &QTimer::timeout, this, &EvaluateManager::UpdateCpuUsage);
    roundTimer.setSingleShot(true);
    connect(&roundTimer, &QTimer::timeout, this, &EvaluateManager::UpdateDecodingChannelsNumber);
    connect(&progressTimer, &QTimer::timeout, this, [this]() {
        const int elapsed = static_cast<int>(
            std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - startTime).count());
        const int left = std::max(totalSeconds - elapsed, 0);
        Q_EMIT Progress(totalSeconds == 0 ? 100 : std::min(99, 100 * elapsed / totalSeconds), left);
    });
}

EvaluateManager::~EvaluateManager()
{
    Stop();
}

bool EvaluateManager::Initialize(const std::string& installRoot)
{
    root = installRoot;
    if (root.empty() && !Orsa::GetOrsaPath(root)) {
        Log(Orsa::LogLevel::Error, "Failed to get orsa path.");
        return false;
    }
    history = std::make_unique<EvaluateHistory>(Orsa::JoinPath(root, recordFile));
    if (!history->ParseConfigFile()) {
        Log(Orsa::LogLevel::Error, "Failed to parse the JSON file");
        return false;
    }
    std::vector<std::string> files;
    for (const Format& format : Formats()) {
        files.push_back(format.file);
    }
    streamsLoaded = loader.Initialize(Orsa::JoinPath(root, videoDataDirectory), files);
    if (!streamsLoaded) {
        Log(Orsa::LogLevel::Warn, "Video data for the decoding evaluation: " + loader.GetError());
    }
    cpuUsageHandler.UpdateCpuTimeRecord();
    return true;
}

std::map<int, bool> EvaluateManager::CheckDecoderDevice() const
{
    std::map<int, bool> supported;
    for (int mode : {custom::DecoderInfo::SOFTWARE_DECODING_MODE, custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE,
                     custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE}) {
        int type = 0;
        std::unique_ptr<Decoder> decoder = VideoDecoder::MakeDecoder(mode, type);
        supported[mode] = decoder->Initialize() == Decoder::initSuccess;
    }
    return supported;
}

int EvaluateManager::EstimatedSeconds() const
{
    const auto roundSeconds = std::chrono::duration_cast<std::chrono::seconds>(settings.roundDuration).count();
    return static_cast<int>(queue.size() + (evaluating ? 1 : 0)) * RoundsPerSearch(settings.upperNum) *
           static_cast<int>(std::max<int64_t>(roundSeconds, 1));
}

void EvaluateManager::Start(const std::vector<std::pair<int, int>>& pairs)
{
    if (evaluating || history == nullptr) {
        return;
    }
    queue.assign(pairs.begin(), pairs.end());
    totalSeconds = EstimatedSeconds();
    startTime = std::chrono::steady_clock::now();
    progressTimer.start(progressPeriodMs);
    Q_EMIT Progress(0, totalSeconds);
    UpdateEvaluateQueue();
}

void EvaluateManager::UpdateEvaluateQueue()
{
    while (!queue.empty()) {
        current = queue.front();
        queue.pop_front();
        data = EvaluateProcessData();
        data.upperNum = settings.upperNum;
        Q_EMIT ItemStarted(current.first, current.second);
        if (StartRound()) {
            evaluating = true;
            return;
        }
        Q_EMIT ItemFinished(current.first, current.second, -1);
    }
    evaluating = false;
    progressTimer.stop();
    Q_EMIT Progress(100, 0);
    Q_EMIT Finished();
}

bool EvaluateManager::StartRound()
{
    const Format& format = Formats().at(static_cast<std::size_t>(current.second));
    const VideoStreamLoader::Stream* stream = loader.GetStream(format.file);
    if (stream == nullptr) {
        Q_EMIT ReadFailed(QString("Failed to read video data. Ensure that %1 files exist in "
                                  "./rviz_plugin/../video_data.")
                              .arg(QString::fromStdString(format.file)));
        return false;
    }
    for (uint16_t i = 0; i < data.currentNum; ++i) {
        channels.push_back(std::make_unique<DecodePerformanceEvaluate>(*stream, current.first));
        if (!channels.back()->Start()) {
            StopRound();
            Log(Orsa::LogLevel::Error, "Failed to evaluate the decoder performance.");
            return false;
        }
    }
    displayRunning = true;
    displayThread = std::thread(&EvaluateManager::DisplayThread, this);
    cpuSamples.clear();
    cpuUsageHandler.UpdateCpuTimeRecord();
    cpuTimer.start(static_cast<int>(settings.cpuSamplePeriod.count()));
    roundTimer.start(static_cast<int>(settings.roundDuration.count()));
    return true;
}

void EvaluateManager::DisplayThread()
{
    // What rviz's main thread does for every shown item on each update.
    auto next = std::chrono::steady_clock::now();
    while (displayRunning) {
        for (const auto& channel : channels) {
            channel->ConvertImage();
        }
        next += displayPeriod;
        std::this_thread::sleep_until(next);
    }
}

void EvaluateManager::StopRound()
{
    cpuTimer.stop();
    roundTimer.stop();
    displayRunning = false;
    if (displayThread.joinable()) {
        displayThread.join();
    }
    channels.clear();
}

void EvaluateManager::UpdateCpuUsage()
{
    cpuUsageHandler.CalculateCpuUsage();
    if (!cpuUsageHandler.IsCpuStatError()) {
        cpuSamples.push_back(cpuUsageHandler.GetSystemCpuUsage() * 100.0);
    }
}

double EvaluateManager::GetAvgCpuUsage() const
{
    // Without a sample the load is unknown: the round cannot pass.
    if (cpuSamples.empty()) {
        return 100.0;
    }
    return std::accumulate(cpuSamples.begin(), cpuSamples.end(), 0.0) / static_cast<double>(cpuSamples.size());
}

void EvaluateManager::UpdateDecodingChannelsNumber()
{
    double decodeSum = 0.0;
    double convertSum = 0.0;
    for (const auto& channel : channels) {
        double decodeMs = 0.0;
        double convertMs = 0.0;
        channel->GetTimes(decodeMs, convertMs);
        decodeSum += decodeMs;
        convertSum += convertMs;
    }
    const double count = static_cast<double>(std::max<std::size_t>(channels.size(), 1));
    const double cpu = GetAvgCpuUsage();
    StopRound();
    data.UpdateResultData(decodeSum / count, convertSum / count, cpu);
    const bool passed = data.IsEvaluatedSuccess();
    Log(Orsa::LogLevel::Info, QString("Decoding evaluation, %1 %2, %3 channels: decode %4 ms, convert %5 ms, CPU "
                                      "%6 %: %7")
                                  .arg(DecoderSwitchResult::ModeName(current.first), Formats().at(current.second).name)
                                  .arg(data.currentNum)
                                  .arg(data.decodeTime, 0, 'f', 2)
                                  .arg(data.convertTime, 0, 'f', 2)
                                  .arg(data.cpuUsage, 0, 'f', 1)
                                  .arg(passed ? "passed" : "failed")
                                  .toStdString());
    if (!data.UpdateNextDecodeNums(passed)) {
        if (!StartRound()) {
            Q_EMIT ItemFinished(current.first, current.second, -1);
            UpdateEvaluateQueue();
        }
        return;
    }
    history->SetChannels(DecoderSwitchResult::ModeName(current.first).toStdString(), Formats().at(current.second).name.toStdString(),
                         data.resultNum);
    if (!history->SaveConfigFile()) {
        Log(Orsa::LogLevel::Error, "Failed to write " + history->GetFilePath());
    }
    Q_EMIT ItemFinished(current.first, current.second, data.resultNum);
    UpdateEvaluateQueue();
}

void EvaluateManager::Stop()
{
    queue.clear();
    StopRound();
    progressTimer.stop();
    evaluating = false;
}

} // namespace rviz_plugin

#include "record_data_manager.h"

#include "vision_data_handler.h"

#include "foundation/logger.h"
#include "foundation/master_topics.h"

namespace rviz_plugin {

RecordDataManager::RecordDataManager(QObject* parent) : QObject(parent)
{
    previewTimer.setInterval(previewPeriod);
    connect(&previewTimer, &QTimer::timeout, this, &RecordDataManager::CheckPreviewData);
}

RecordDataManager::~RecordDataManager()
{
    CloseRecord();
}

void RecordDataManager::Initialize()
{
    RegisterDataRecorder(frameArrayType, [] { return std::make_unique<VisionDataHandler>(); });
}

void RecordDataManager::RegisterDataRecorder(const std::string& type, RecorderFactory factory)
{
    factories[type] = std::move(factory);
}

void RecordDataManager::AddPseudoTopic(const std::string& topic, const std::string& type)
{
    pseudoTopics[topic] = type;
}

std::map<std::string, std::string> RecordDataManager::GetTopicTypeMap() const
{
    std::map<std::string, std::string> topics = pseudoTopics;
    ros::master::V_TopicInfo published;
    if (GetTopicsWithoutWaiting(published)) {
        for (const auto& info : published) {
            if (factories.count(info.datatype) != 0) {
                topics[info.name] = info.datatype;
            }
        }
    }
    return topics;
}

const std::map<std::string, std::pair<int, int>>& RecordDataManager::GetResolutionTable()
{
    static const std::map<std::string, std::pair<int, int>> table = {
        {"480P", {854, 480}}, {"720P", {1280, 720}}, {"1080P", {1920, 1080}}};
    return table;
}

DataRecorderBase* RecordDataManager::CreateRecorder(const std::string& topic, const RecordSettings& settings)
{
    const auto types = GetTopicTypeMap();
    const auto type = types.find(topic);
    const auto factory = type == types.end() ? factories.find(frameArrayType) : factories.find(type->second);
    if (factory == factories.end()) {
        return nullptr;
    }
    std::unique_ptr<DataRecorderBase> recorder = factory->second();
    recorder->Initialize(topic);
    recorder->ReadyConfig(settings);
    recorder->StartThread();
    DataRecorderBase* made = recorder.get();
    recorders[topic] = std::move(recorder);
    return made;
}

void RecordDataManager::StartPreview(const std::vector<std::string>& topics)
{
    CloseRecord();
    previewRound = 0;
    RecordSettings settings;
    settings.width = resolution.first;
    settings.height = resolution.second;
    for (const auto& topic : topics) {
        if (DataRecorderBase* recorder = CreateRecorder(topic, settings)) {
            recorder->StartPreviewData();
        }
    }
    previewTimer.start();
}

void RecordDataManager::CheckPreviewData()
{
    ++previewRound;
    int ready = 0;
    for (const auto& [topic, recorder] : recorders) {
        ready += recorder->GetIsPreviewImageReady() ? 1 : 0;
    }
    const int total = static_cast<int>(recorders.size());
    if (previewRound < previewRoundLimit && ready < total) {
        Q_EMIT PreviewDataCapturing(ready, total);
        return;
    }
    previewTimer.stop();
    for (const auto& [topic, recorder] : recorders) {
        recorder->CloseRecordData();
    }
    if (ready == 0) {
        Q_EMIT PreviewDataCapturing(-1, total);
    }
    Q_EMIT PreviewDataFinished();
}

QImage RecordDataManager::GetPreviewImage(const std::string& topic) const
{
    const auto found = recorders.find(topic);
    return found == recorders.end() ? QImage() : found->second->GetPreviewImage();
}

void RecordDataManager::StartRecord(const std::string& folder, bool skipEvaluation, bool useHardware,
                                    const std::map<std::string, EncoderType>& evaluatedEncoders)
{
    recordFolder = folder;
    if (skipEvaluation) {
        StartRecordingSkipEvaluation(useHardware);
    } else {
        StartRecordingOnEvaluation(evaluatedEncoders);
    }
}

void RecordDataManager::CreateRecorders(EncoderType type, const std::map<std::string, EncoderType>& encoders)
{
    CloseRecord();
    for (const auto& topic : selectedTopics) {
        RecordSettings settings;
        settings.folder = recordFolder;
        settings.width = resolution.first;
        settings.height = resolution.second;
        const auto evaluated = encoders.find(topic);
        settings.encoderType = evaluated == encoders.end() ? type : evaluated->second;
        CreateRecorder(topic, settings);
    }
}

void RecordDataManager::StartRecordingSkipEvaluation(bool useHardware)
{
    EncoderType type = EncoderType::Software;
    if (useHardware) {
        type = EncoderType::Nvidia;
    }
    CreateRecorders(type, {});
    StartRecorders();
}

void RecordDataManager::StartRecordingOnEvaluation(const std::map<std::string, EncoderType>& encoders)
{
    CreateRecorders(EncoderType::Software, encoders);
    StartRecorders();
}

void RecordDataManager::StartRecorders()
{
    for (const auto& [topic, recorder] : recorders) {
        recorder->StartRecordData();
        if (!recorder->GetIsStartSuccess()) {
            Orsa::Logger::GetInstance().WriteLog("RecordVideoDataTool", Orsa::LogLevel::Error,
                                                 "Failed to start a recorder for topic " + topic + ".");
        }
    }
}

void RecordDataManager::CloseRecord()
{
    previewTimer.stop();
    for (auto& [topic, recorder] : recorders) {
        recorder->StopBeat();
    }
    for (auto& [topic, recorder] : recorders) {
        recorder->ShutDown();
    }
    recorders.clear();
}

std::map<std::string, double> RecordDataManager::GetRecordingDuration()
{
    std::map<std::string, double> durations;
    for (const auto& [topic, recorder] : recorders) {
        durations[topic] = recorder->GetEncodingDuration();
    }
    return durations;
}

std::map<std::string, std::string> RecordDataManager::GetRecordedFiles() const
{
    std::map<std::string, std::string> files;
    for (const auto& [topic, recorder] : recorders) {
        files[topic] = recorder->GetFileName();
    }
    return files;
}

std::map<std::string, EncoderType> RecordDataManager::GetEncoderTypes() const
{
    std::map<std::string, EncoderType> types;
    for (const auto& [topic, recorder] : recorders) {
        types[topic] = recorder->GetEncoderType();
    }
    return types;
}

bool RecordDataManager::IsRecording() const
{
    for (const auto& [topic, recorder] : recorders) {
        if (recorder->IsRecording()) {
            return true;
        }
    }
    return false;
}

void RecordDataManager::SwitchEncoder(EncoderType& type)
{
    type = NextEncoderType(type);
}

} // namespace rviz_plugin

#include "capture_data_manager.h"

#include "av_frame_data_handler.h"
#include "capture_sync.h"
#include "point_cloud2_data_handler.h"

#include "foundation/master_topics.h"

#include <QDateTime>
#include <QDir>

#include <algorithm>

namespace rviz_plugin {

CaptureDataManager::CaptureDataManager(QObject* parent) : QObject(parent)
{
    qRegisterMetaType<CaptrueStatus>();
    qRegisterMetaType<SaveErrorType>();
    qRegisterMetaType<std::string>();
    checkTimer.setInterval(checkInterval);
    connect(&checkTimer, &QTimer::timeout, this, &CaptureDataManager::CheckCaptureData);
}

CaptureDataManager::~CaptureDataManager()
{
    StopCapture();
}

void CaptureDataManager::Init()
{
    RegisterDataHandler(AvFrameDataHandler::topicType, [] { return std::make_unique<AvFrameDataHandler>(); });
    RegisterDataHandler(PointCloud2DataHandler::topicType, [] { return std::make_unique<PointCloud2DataHandler>(); });
}

void CaptureDataManager::RegisterDataHandler(const std::string& type, HandlerFactory factory)
{
    factories[type] = std::move(factory);
}

std::vector<std::string> CaptureDataManager::GetTopicList(const std::string& type) const
{
    std::vector<std::string> topics;
    ros::master::V_TopicInfo published;
    if (GetTopicsWithoutWaiting(published)) {
        for (const auto& info : published) {
            if (info.datatype == type) {
                topics.push_back(info.name);
            }
        }
    }
    std::sort(topics.begin(), topics.end());
    return topics;
}

void CaptureDataManager::StartCapture(const std::vector<std::pair<std::string, std::string>>& topics, int count)
{
    StopCapture();
    handlers.clear();
    wantedCount = std::clamp(count, minCaptureNumber, maxCaptureNumber);
    status = CaptrueStatus::Capturing;
    referenceTopic.clear();
    ros::master::V_TopicInfo published;
    const bool masterAnswered = GetTopicsWithoutWaiting(published);
    bool subscriptionError = !masterAnswered || topics.empty();
    for (const auto& [topic, type] : topics) {
        const bool isPublished = std::any_of(published.begin(), published.end(), [&](const ros::master::TopicInfo& info) {
            return info.name == topic && info.datatype == type;
        });
        const auto factory = factories.find(type);
        if (!isPublished || factory == factories.end()) {
            subscriptionError = true;
            continue;
        }
        if (referenceTopic.empty() && type == AvFrameDataHandler::topicType) {
            referenceTopic = topic;
        }
        auto handler = factory->second();
        handler->Initialize(topic, wantedCount);
        connect(handler.get(), &DataHandlerBase::DataSaveFinished, this, [this] {
            --savesPending;
            ++savesDone;
            Q_EMIT SendSaveDataStatusUpdate(savesDone, savesTotal);
        });
        connect(handler.get(), &DataHandlerBase::DataSaveFailed, this,
                [this, topic = topic](SaveErrorType error, const QString& path) {
                    --savesPending;
                    Q_EMIT SendSaveDataFailed(topic, error, path);
                });
        connect(handler.get(), &DataHandlerBase::ExportConflict, this, [this, topic = topic] {
            --savesPending;
            Q_EMIT SendSaveConflict(topic);
        });
        handlers[topic] = std::move(handler);
    }
    // The first selected camera leads; without a camera, the first topic.
    if (referenceTopic.empty() && !topics.empty()) {
        referenceTopic = topics.front().first;
    }
    if (subscriptionError) {
        StopCapture();
        status = CaptrueStatus::SubscriptionError;
        Q_EMIT SendCaptureStatusUpdate(status, -1);
        return;
    }
    for (auto& [topic, handler] : handlers) {
        handler->StartCaptureData();
    }
    checkTimer.start();
}

void CaptureDataManager::StopCapture()
{
    checkTimer.stop();
    for (auto& [topic, handler] : handlers) {
        handler->StopCaptureData();
    }
}

void CaptureDataManager::Finish(CaptrueStatus finalStatus)
{
    StopCapture();
    for (auto& [topic, handler] : handlers) {
        handler->ShutDown();
    }
    status = finalStatus;
    Q_EMIT SendCaptureStatusUpdate(status, -1);
    Q_EMIT SendCaptureFinished();
}

void CaptureDataManager::CheckCaptureData()
{
    bool allDone = true;
    for (const auto& [topic, handler] : handlers) {
        if (handler->IsTimedOut()) {
            Finish(CaptrueStatus::TimedOut);
            return;
        }
        allDone = allDone && handler->CaptureDataCount() >= wantedCount;
    }
    if (allDone) {
        Finish(CaptrueStatus::Success);
        return;
    }
    UpdateCaptureStatus();
}

void CaptureDataManager::UpdateCaptureStatus()
{
    int least = wantedCount;
    for (const auto& [topic, handler] : handlers) {
        least = std::min(least, handler->CaptureDataCount());
    }
    Q_EMIT SendCaptureStatusUpdate(CaptrueStatus::Capturing, least);
}

std::map<std::string, std::vector<ros::Time>> CaptureDataManager::GetCaptureDataHeaderStamps() const
{
    std::map<std::string, std::vector<ros::Time>> stamps;
    for (const auto& [topic, handler] : handlers) {
        stamps[topic] = handler->GetDataHeaderStamps();
    }
    return stamps;
}

std::map<std::string, std::vector<ros::Time>> CaptureDataManager::GetSyncCaptureDataHeaderStamps() const
{
    return SynchroniseStamps(referenceTopic, GetCaptureDataHeaderStamps(), wantedCount);
}

std::map<ros::Time, QImage> CaptureDataManager::GetImages(const std::string& topic,
                                                          const std::vector<ros::Time>& stamps) const
{
    const auto found = handlers.find(topic);
    return found == handlers.end() ? std::map<ros::Time, QImage>() : found->second->GetImages(stamps);
}

QString CaptureDataManager::SaveData(const QVector<QString>& topics, const QString& folder, const QString& name)
{
    if (!QDir(folder).exists() && !QDir().mkdir(folder)) {
        Q_EMIT SendMkdirFailed(folder);
        return QString();
    }
    const QString exportName =
        QString("%1-%2").arg(QDateTime::currentDateTime().toString("yyyy-MM-dd hh:mm:ss.zzz"), name);
    const QString exportFolder = QString("%1/%2").arg(folder, exportName);
    if (!QDir().mkpath(exportFolder)) {
        Q_EMIT SendMkdirFailed(exportFolder);
        return QString();
    }
    const auto stamps = GetSyncCaptureDataHeaderStamps();
    savesDone = 0;
    savesTotal = 0;
    savesPending = 0;
    for (const QString& topic : topics) {
        const auto handler = handlers.find(topic.toStdString());
        const auto kept = stamps.find(topic.toStdString());
        if (handler == handlers.end() || kept == stamps.end()) {
            continue;
        }
        ++savesTotal;
        ++savesPending;
        handler->second->SaveData(exportFolder, kept->second);
    }
    Q_EMIT SendSaveDataStatusUpdate(0, savesTotal);
    return exportFolder;
}

} // namespace rviz_plugin

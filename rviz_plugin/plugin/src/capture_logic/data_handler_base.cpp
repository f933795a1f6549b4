#include "data_handler_base.h"

namespace rviz_plugin {

DataHandlerBase::DataHandlerBase(QObject* parent) : QObject(parent)
{
    watchdog.setInterval(watchdogInterval);
    connect(&watchdog, &QTimer::timeout, this, &DataHandlerBase::OnSendTimeOutHander);
}

DataHandlerBase::~DataHandlerBase()
{
    ShutDown();
    if (saveThread != nullptr) {
        saveThread->wait();
    }
}

void DataHandlerBase::Initialize(const std::string& captureTopic, int count)
{
    topic = captureTopic;
    wantedCount = count;
    nodeHandle = std::make_unique<ros::NodeHandle>();
    nodeHandle->setCallbackQueue(&callbackQueue);
    Subscribe(*nodeHandle);
    spinner = std::make_unique<ros::AsyncSpinner>(1, &callbackQueue);
    spinner->start();
}

void DataHandlerBase::ShutDown()
{
    watchdog.stop();
    capturing = false;
    subscriber.shutdown();
    if (spinner != nullptr) {
        spinner->stop();
    }
    callbackQueue.clear();
}

void DataHandlerBase::StartCaptureData()
{
    timedOut = false;
    // The start is the first mark: a topic that sends nothing for one watchdog period has stalled.
    lastCount = CaptureDataCount();
    captureStatus = CaptrueStatus::Capturing;
    capturing = true;
    watchdog.start();
}

void DataHandlerBase::StopCaptureData()
{
    capturing = false;
    watchdog.stop();
}

void DataHandlerBase::OnSendTimeOutHander()
{
    const int count = CaptureDataCount();
    if (capturing && count < wantedCount && count == lastCount) {
        timedOut = true;
        captureStatus = CaptrueStatus::TimedOut;
        return;
    }
    lastCount = count;
}

bool DataHandlerBase::IsSaving() const
{
    return saveThread != nullptr && saveThread->isRunning();
}

void DataHandlerBase::SaveData(const QString& folder, const std::vector<ros::Time>& stamps)
{
    if (saveThread != nullptr) {
        saveThread->wait();
    }
    saveThread.reset(MakeSaveThread(folder, stamps));
    saveThread->start();
}

void DataHandlerBase::OnSaveConflicting()
{
    Q_EMIT ExportConflict();
}

} // namespace rviz_plugin

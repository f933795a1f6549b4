#ifndef RVIZ_PLUGIN_DATA_HANDLER_BASE_H
#define RVIZ_PLUGIN_DATA_HANDLER_BASE_H

#include "capture_types.h"

#include <QImage>
#include <QObject>
#include <QString>
#include <QThread>
#include <QTimer>

#ifndef Q_MOC_RUN
#include <ros/callback_queue.h>
#include <ros/ros.h>
#include <ros/spinner.h>
#endif

#include <atomic>
#include <map>
#include <memory>
#include <vector>

namespace rviz_plugin {

// Collects the messages of one topic for a capture: up to the wanted count while the capture runs, with a
// watchdog that marks the capture timed out when the count stands still for 1500 ms. Messages arrive on a
// spinner thread of the handler's own; the GUI thread reads them. Saving runs on a thread per topic.
class DataHandlerBase : public QObject {
    Q_OBJECT

public:
    static constexpr int watchdogInterval = 1500;

    explicit DataHandlerBase(QObject* parent = nullptr);
    ~DataHandlerBase() override;

    // Subscribes the topic; StartCaptureData starts the watchdog.
    void Initialize(const std::string& topic, int wantedCount);
    void ShutDown();
    CaptrueStatus GetCaptureStatus() const { return captureStatus; }
    void StartCaptureData();
    void StopCaptureData();
    bool IsStartCapture() const { return capturing; }
    bool IsTimedOut() const { return timedOut; }
    virtual int CaptureDataCount() const = 0;
    virtual std::vector<ros::Time> GetDataHeaderStamps() const = 0;
    // The pictures of the messages at the stamps, for the preview.
    virtual std::map<ros::Time, QImage> GetImages(const std::vector<ros::Time>& stamps) const = 0;
    // Writes the messages at the stamps into folder on a thread; DataSaveFinished or DataSaveFailed follow.
    void SaveData(const QString& folder, const std::vector<ros::Time>& stamps);
    const std::string& GetTopic() const { return topic; }
    bool IsSaving() const;

Q_SIGNALS:
    void DataSaveFailed(rviz_plugin::SaveErrorType type, const QString& path);
    void DataSaveFinished();
    // Two kept messages share a stamp: the export of this topic stopped.
    void ExportConflict();

public Q_SLOTS:
    void OnSendTimeOutHander();
    void OnSaveConflicting();

protected:
    virtual void Subscribe(ros::NodeHandle& node) = 0;
    // The thread that writes the selected messages into folder; its signals are connected here.
    virtual QThread* MakeSaveThread(const QString& folder, const std::vector<ros::Time>& stamps) = 0;
    // Connects a save thread's outcome signals to this handler (queued: they come from the thread).
    template <typename Thread>
    void ConnectSaveThread(Thread* thread)
    {
        connect(thread, &Thread::SaveFailed, this, [this](int type, const QString& path) {
            Q_EMIT DataSaveFailed(static_cast<SaveErrorType>(type), path);
        }, Qt::QueuedConnection);
        connect(thread, &Thread::SaveConflicting, this, &DataHandlerBase::OnSaveConflicting, Qt::QueuedConnection);
        connect(thread, &Thread::SaveSucceeded, this, &DataHandlerBase::DataSaveFinished, Qt::QueuedConnection);
    }
    bool WantsMore(int count) const { return capturing && count < wantedCount; }

    std::string topic;
    int wantedCount = 1;
    ros::Subscriber subscriber;

private:
    std::atomic<CaptrueStatus> captureStatus{CaptrueStatus::Capturing};
    std::atomic<bool> capturing{false};
    std::atomic<bool> timedOut{false};
    int lastCount = 0;
    QTimer watchdog;
    ros::CallbackQueue callbackQueue;
    std::unique_ptr<ros::NodeHandle> nodeHandle;
    std::unique_ptr<ros::AsyncSpinner> spinner;
    std::unique_ptr<QThread> saveThread;
};

} // namespace rviz_plugin

#endif

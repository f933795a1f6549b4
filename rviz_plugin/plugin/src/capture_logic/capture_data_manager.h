#ifndef RVIZ_PLUGIN_CAPTURE_DATA_MANAGER_H
#define RVIZ_PLUGIN_CAPTURE_DATA_MANAGER_H

#include "capture_types.h"
#include "data_handler_base.h"

#include <QImage>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVector>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// Runs a capture: one handler per selected topic, a check every 300 ms until every handler holds the wanted
// count or one has stalled, then the stamps lined up on the reference topic (the first selected camera),
// the pictures for the preview and the export.
class CaptureDataManager : public QObject {
    Q_OBJECT

public:
    using HandlerFactory = std::function<std::unique_ptr<DataHandlerBase>()>;
    static constexpr int checkInterval = 300;
    static constexpr int minCaptureNumber = 1;
    static constexpr int maxCaptureNumber = 100;

    explicit CaptureDataManager(QObject* parent = nullptr);
    ~CaptureDataManager() override;

    // Registers the camera and point cloud handlers.
    void Init();
    void RegisterDataHandler(const std::string& type, HandlerFactory factory);
    // Topics in the order the user chose them, with their types.
    void StartCapture(const std::vector<std::pair<std::string, std::string>>& topics, int count);
    void StopCapture();
    std::map<std::string, std::vector<ros::Time>> GetCaptureDataHeaderStamps() const;
    // The stamps each topic keeps, lined up on the reference topic; empty when they cannot be lined up.
    std::map<std::string, std::vector<ros::Time>> GetSyncCaptureDataHeaderStamps() const;
    std::map<ros::Time, QImage> GetImages(const std::string& topic, const std::vector<ros::Time>& stamps) const;
    // Exports the topics' lined-up messages into folder/"<time>-<name>"; returns the export folder, or "" when
    // folder cannot be made.
    QString SaveData(const QVector<QString>& topics, const QString& folder, const QString& name);
    // Published topics of the type, sorted.
    std::vector<std::string> GetTopicList(const std::string& type) const;
    CaptrueStatus GetStatus() const { return status; }
    const std::string& GetReferenceTopic() const { return referenceTopic; }
    bool IsSaving() const { return savesPending > 0; }

Q_SIGNALS:
    void SendCaptureFinished();
    void SendCaptureStatusUpdate(rviz_plugin::CaptrueStatus status, int count);
    void SendSaveDataStatusUpdate(int done, int total);
    void SendSaveDataFailed(const std::string& topic, rviz_plugin::SaveErrorType type, const QString& path);
    void SendSaveConflict(const std::string& topic);
    void SendMkdirFailed(const QString& folder);

private:
    void CheckCaptureData();
    void UpdateCaptureStatus();
    void Finish(CaptrueStatus finalStatus);

    std::map<std::string, HandlerFactory> factories;
    std::map<std::string, std::unique_ptr<DataHandlerBase>> handlers;
    std::string referenceTopic;
    int wantedCount = 1;
    CaptrueStatus status = CaptrueStatus::Success;
    QTimer checkTimer;
    int savesPending = 0;
    int savesDone = 0;
    int savesTotal = 0;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_RUNNING_STATUS_TOOL_H
#define RVIZ_PLUGIN_RUNNING_STATUS_TOOL_H

#include <QObject>
#include <QString>
#include <QTimer>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

#include <memory>
#include <mutex>

namespace rviz_plugin {

// Turns one second of the overlay node's events into one verdict of the item's "Running Status".
class RunningStatusTool : public QObject {
    Q_OBJECT
public:
    // The verdict of the last second; the start state (code 0) says nothing.
    class IppStatus {
    public:
        IppStatus(int code, RunningStatusTool* tool) : statusCode(code), tool(tool) {}
        virtual ~IppStatus() = default;
        virtual void UpdateRunningStatus() {}
        int GetStatusCode() const { return statusCode; }

    protected:
        int statusCode;
        RunningStatusTool* tool;
    };

    RunningStatusTool();
    ~RunningStatusTool() override;

    void Start();
    int GetOverViewStatus() const;

    void ChangeStatusToWaitingData();
    void ChangeStatusToInsufficientData();
    void ChangeStatusToTooSmallQueueSize();
    void ChangeStatusToNoNormalData();
    void ChangeStatusToHasPerformanceProblem();
    void ChangeStatusToLowPerceptionDataFrequency();
    void ChangeStatusToUnstableData();
    void ChangeStatusToNormal();

    // A verdict that reports itself through one of the tool's ChangeStatusTo... operations.
    template <int Code, void (RunningStatusTool::*Report)()>
    class ReportingStatus : public IppStatus {
    public:
        explicit ReportingStatus(RunningStatusTool* owner) : IppStatus(Code, owner) {}
        void UpdateRunningStatus() override { (tool->*Report)(); }
    };
    using WaitingDataStatus = ReportingStatus<1, &RunningStatusTool::ChangeStatusToWaitingData>;
    using InsufficientDataStatus = ReportingStatus<2, &RunningStatusTool::ChangeStatusToInsufficientData>;
    using TooSmallQueueSizeStatus = ReportingStatus<3, &RunningStatusTool::ChangeStatusToTooSmallQueueSize>;
    using NoNormalDataStatus = ReportingStatus<4, &RunningStatusTool::ChangeStatusToNoNormalData>;
    using HasPerformanceProblem = ReportingStatus<5, &RunningStatusTool::ChangeStatusToHasPerformanceProblem>;
    using LowPerceptionDataFrequency =
        ReportingStatus<6, &RunningStatusTool::ChangeStatusToLowPerceptionDataFrequency>;
    using UnstableDataStatus = ReportingStatus<7, &RunningStatusTool::ChangeStatusToUnstableData>;
    using NormalStatus = ReportingStatus<8, &RunningStatusTool::ChangeStatusToNormal>;

public Q_SLOTS:
    void OnDetectedQueueFull();
    void OnDetectedQueueEmpty();
    void OnDetectedDiscardPerceptionData();
    void OnDetectedDiscardImageData();
    void OnDetectedDataSend();
    void OnDetectedPerformanceProblem();
    void RefreshRunningStatus();

Q_SIGNALS:
    void RunningStatusChanged(rviz::StatusProperty::Level level, const QString& key, const QString& text);

private:
    // The state of the first rule that holds, in the order of the rule table.
    std::unique_ptr<IppStatus> UpdateCurrentStatus();
    void SetFlagToInitialStatus();
    void Report(rviz::StatusProperty::Level level, const char* text);

    bool queueEmpty = false;
    bool queueFull = false;
    bool discardPerceptionData = false;
    bool discardImageData = false;
    bool dataSend = false;
    bool performanceProblem = false;
    std::unique_ptr<IppStatus> currentStatus;
    std::mutex mutex;
    QTimer timer;
};

} // namespace rviz_plugin

#endif

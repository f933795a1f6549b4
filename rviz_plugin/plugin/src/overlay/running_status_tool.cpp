#include "running_status_tool.h"

namespace rviz_plugin {

namespace {
constexpr int refreshPeriodMs = 1000;
const QString runningStatusKey = "Running Status";
} // namespace

RunningStatusTool::RunningStatusTool() : currentStatus(std::make_unique<IppStatus>(0, this)) {}

RunningStatusTool::~RunningStatusTool() = default;

void RunningStatusTool::Start()
{
    currentStatus = std::make_unique<IppStatus>(0, this);
    connect(&timer, &QTimer::timeout, this, &RunningStatusTool::RefreshRunningStatus);
    timer.start(refreshPeriodMs);
}

int RunningStatusTool::GetOverViewStatus() const
{
    return currentStatus->GetStatusCode();
}

void RunningStatusTool::OnDetectedQueueFull()
{
    std::lock_guard<std::mutex> lock(mutex);
    queueFull = true;
}

void RunningStatusTool::OnDetectedQueueEmpty()
{
    std::lock_guard<std::mutex> lock(mutex);
    queueEmpty = true;
}

void RunningStatusTool::OnDetectedDiscardPerceptionData()
{
    std::lock_guard<std::mutex> lock(mutex);
    discardPerceptionData = true;
    queueEmpty = false;
}

void RunningStatusTool::OnDetectedDiscardImageData()
{
    std::lock_guard<std::mutex> lock(mutex);
    discardImageData = true;
    queueEmpty = false;
}

void RunningStatusTool::OnDetectedDataSend()
{
    std::lock_guard<std::mutex> lock(mutex);
    dataSend = true;
    queueEmpty = false;
}

void RunningStatusTool::OnDetectedPerformanceProblem()
{
    performanceProblem = true;
}

void RunningStatusTool::RefreshRunningStatus()
{
    std::lock_guard<std::mutex> lock(mutex);
    std::unique_ptr<IppStatus> next = UpdateCurrentStatus();
    if (next->GetStatusCode() != currentStatus->GetStatusCode()) {
        currentStatus = std::move(next);
    }
    currentStatus->UpdateRunningStatus();
    SetFlagToInitialStatus();
}

std::unique_ptr<RunningStatusTool::IppStatus> RunningStatusTool::UpdateCurrentStatus()
{
    if ((discardPerceptionData || discardImageData) && !dataSend) {
        return std::make_unique<NoNormalDataStatus>(this);
    }
    if (queueEmpty) {
        return std::make_unique<InsufficientDataStatus>(this);
    }
    if (queueFull && !queueEmpty) {
        return std::make_unique<TooSmallQueueSizeStatus>(this);
    }
    if (performanceProblem) {
        return std::make_unique<HasPerformanceProblem>(this);
    }
    if (discardImageData && dataSend && !discardPerceptionData) {
        return std::make_unique<LowPerceptionDataFrequency>(this);
    }
    if (discardPerceptionData && dataSend) {
        return std::make_unique<UnstableDataStatus>(this);
    }
    if (dataSend && !discardPerceptionData && !discardImageData) {
        return std::make_unique<NormalStatus>(this);
    }
    return std::make_unique<WaitingDataStatus>(this);
}

void RunningStatusTool::SetFlagToInitialStatus()
{
    queueEmpty = false;
    queueFull = false;
    discardPerceptionData = false;
    discardImageData = false;
    dataSend = false;
    performanceProblem = false;
}

void RunningStatusTool::Report(rviz::StatusProperty::Level level, const char* text)
{
    Q_EMIT RunningStatusChanged(level, runningStatusKey, text);
}

void RunningStatusTool::ChangeStatusToWaitingData()
{
    Report(rviz::StatusProperty::Warn, "Waiting for data.");
}

void RunningStatusTool::ChangeStatusToInsufficientData()
{
    Report(rviz::StatusProperty::Error,
           "No data for one or more selected items (Objects, Traffic Lights, Road Lines, Freespace Semantic "
           "Segmentation or MarkerArray).");
}

void RunningStatusTool::ChangeStatusToTooSmallQueueSize()
{
    Report(rviz::StatusProperty::Warn,
           "Some queues are full, possibly because the value of 'Timestamp Sync Queue Size' is too small.");
}

void RunningStatusTool::ChangeStatusToNoNormalData()
{
    Report(rviz::StatusProperty::Error,
           "The timestamps of the received data entries are inconsistent, and the visualized perception data cannot "
           "be drawn on the image. ");
}

void RunningStatusTool::ChangeStatusToHasPerformanceProblem()
{
    Report(rviz::StatusProperty::Warn,
           "The process of drawing a detection frame on a single-frame image takes more than 33 ms. This may cause "
           "frame loss. You can decrease the font size in 'Display effects', or use a computer with higher "
           "performance to avoid this problem.");
}

void RunningStatusTool::ChangeStatusToLowPerceptionDataFrequency()
{
    Report(rviz::StatusProperty::Warn,
           "The node is running. The frequency of the currently received visualized perception data is lower than "
           "the frequency of the image data, and the frequency of the output drawn image is the same as the "
           "frequency of the visualized perception data.");
}

void RunningStatusTool::ChangeStatusToUnstableData()
{
    Report(rviz::StatusProperty::Warn,
           "Timestamps of some data entries are inconsistent. The current data transmission is unstable.");
}

void RunningStatusTool::ChangeStatusToNormal()
{
    Report(rviz::StatusProperty::Ok, "Running, Everything is normal.");
}

} // namespace rviz_plugin

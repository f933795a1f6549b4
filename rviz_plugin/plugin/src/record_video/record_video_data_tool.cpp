#include "record_video_data_tool.h"

#include "record_center_widget.h"
#include "record_evaluate_widget.h"
#include "render_panel_data_handler.h"
#include "tips_center_widget.h"
#include "tips_recording_widget.h"

#include "record_video_logic/inquire_status.h"
#include "record_video_logic/nv_encoder.h"
#include "topic_rename/rename_data.h"

#include "foundation/logger.h"
#include "foundation/rviz_helpers.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

#include <rviz/display_context.h>
#include <rviz/tool_manager.h>
#include <rviz/visualization_manager.h>
#include <rviz/window_manager_interface.h>

namespace rviz_plugin {

namespace {
constexpr int64_t minimumFreeBytes = 0x40000000;

QString CameraName(const std::string& topic)
{
    if (topic == RenderPanelDataHandler::pseudoTopic) {
        return QString::fromStdString(topic);
    }
    std::string named;
    RenameData::GetCameraTopicWidthAlias(named, topic.substr(0, topic.find("_frameArray")));
    return QString::fromStdString(named);
}
} // namespace

RecordVideoDataTool::RecordVideoDataTool()
{
    shortcut_key_ = 'r';
    ask = [this](const QString& title, const QString& text) {
        return QMessageBox::question(MainWindow(), title, text, QMessageBox::Yes | QMessageBox::No) ==
               QMessageBox::Yes;
    };
}

RecordVideoDataTool::~RecordVideoDataTool()
{
    statusTimer.stop();
    evaluator.CancelEvaluation();
    manager.CloseRecord();
    delete centerWidget;
    delete tipsCenter;
    delete tipsRecording;
    delete evaluateWidget;
}

void RecordVideoDataTool::onInitialize()
{
    setName("Record Video");
    manager.Initialize();
    auto* visualization = dynamic_cast<rviz::VisualizationManager*>(context_);
    rviz::RenderPanel* renderPanel = visualization != nullptr ? visualization->getRenderPanel() : nullptr;
    if (renderPanel != nullptr) {
        manager.RegisterDataRecorder(RenderPanelDataHandler::recorderType, [renderPanel] {
            return std::make_unique<RenderPanelDataHandler>(renderPanel);
        });
        manager.AddPseudoTopic(RenderPanelDataHandler::pseudoTopic, RenderPanelDataHandler::recorderType);
    }
    tipsCenter = new TipsCenterWidget(MainWindow());
    evaluateWidget = new RecordEvaluateWidget(MainWindow());
    connect(&manager, &RecordDataManager::PreviewDataCapturing, this, &RecordVideoDataTool::OnPreviewCapturing);
    connect(&manager, &RecordDataManager::PreviewDataFinished, this, &RecordVideoDataTool::ShowPreviewWindow);
    connect(&evaluator, &RecordDataEvaluator::EvaluateProgress, evaluateWidget.data(),
            &RecordEvaluateWidget::UpdateProgress);
    connect(&evaluator, &RecordDataEvaluator::EvaluateFinished, this, &RecordVideoDataTool::ExecEvaluatedResult);
    connect(evaluateWidget.data(), &RecordEvaluateWidget::CancelEvaluation, this, [this] {
        evaluator.CancelEvaluation();
        status = RecordVideoStatus::Idle;
    });
    connect(&detectorStatus, &DetectorStatus::StatusUpdated, this, [this](DetectedStatus detected) {
        if (tipsRecording != nullptr) {
            tipsRecording->UpdateWarnLabel(detected);
        }
    });
    statusTimer.setInterval(statusInterval);
    connect(&statusTimer, &QTimer::timeout, this, &RecordVideoDataTool::UpdateRecordingStatus);
}

QWidget* RecordVideoDataTool::MainWindow() const
{
    return context_ != nullptr && context_->getWindowManager() != nullptr
               ? context_->getWindowManager()->getParentWindow()
               : nullptr;
}

void RecordVideoDataTool::SetAsk(std::function<bool(const QString&, const QString&)> question)
{
    ask = std::move(question);
}

void RecordVideoDataTool::SetInteractToolAsDefaultTool()
{
    rviz::Tool* interact = GetInteractToolButton(context_->getToolManager());
    if (interact != nullptr && interact != this) {
        context_->getToolManager()->setCurrentTool(interact);
    }
}

void RecordVideoDataTool::activate()
{
    if (status == RecordVideoStatus::Recording) {
        ShowRecordingPanel();
    } else if (status == RecordVideoStatus::Idle) {
        std::vector<std::string> topics;
        for (const auto& [topic, type] : manager.GetTopicTypeMap()) {
            topics.push_back(topic);
        }
        status = RecordVideoStatus::Previewing;
        tipsCenter->ShowProgress("Data is being captured...");
        manager.StartPreview(topics);
    }
    SetInteractToolAsDefaultTool();
}

void RecordVideoDataTool::deactivate() {}

QString RecordVideoDataTool::ConvertCapturingStatus(int done, int total)
{
    if (done == -1) {
        return "Data subscription error. Check whether the topic name used by the sensor data publisher is correct.";
    }
    return total > 0 ? QString("Data is being captured...") : QString();
}

void RecordVideoDataTool::OnPreviewCapturing(int done, int total)
{
    if (done == -1) {
        tipsCenter->ShowFinal(ConvertCapturingStatus(done, total));
    } else {
        tipsCenter->ShowProgress(ConvertCapturingStatus(done, total));
    }
}

bool RecordVideoDataTool::CheckNvEncoderSupported()
{
    if (nvidiaSupported == -1) {
        NvEncoder probe;
        nvidiaSupported = probe.IsEncoderSupported() ? 1 : 0;
    }
    return nvidiaSupported == 1;
}

void RecordVideoDataTool::ShowPreviewWindow()
{
    const bool failed = tipsCenter->isVisible() && tipsCenter->GetText() == ConvertCapturingStatus(-1, 0);
    if (!failed) {
        tipsCenter->hide();
    }
    status = RecordVideoStatus::Idle;
    delete centerWidget;
    centerWidget = new RecordCenterWidget(CheckNvEncoderSupported(), MainWindow());
    for (const auto& [topic, type] : manager.GetTopicTypeMap()) {
        centerWidget->AddRecordingWindow(QString::fromStdString(topic), CameraName(topic),
                                         manager.GetPreviewImage(topic));
    }
    manager.CloseRecord();
    connect(centerWidget.data(), &RecordCenterWidget::StartRecord, this, &RecordVideoDataTool::StartRecord);
    centerWidget->show();
}

bool RecordVideoDataTool::MakeRecordFilePath(const QString& path)
{
    if (QDir().mkpath(path) && QFileInfo(path).isWritable()) {
        return true;
    }
    QMessageBox::warning(MainWindow(), "Warning", QString("Failed to make the directory %1").arg(path));
    return false;
}

void RecordVideoDataTool::StartRecord(const RecordMsg& msg)
{
    recordMsg = msg;
    recordFolder = QString("%1/%2").arg(msg.folder, msg.taskName);
    if (!MakeRecordFilePath(recordFolder)) {
        return;
    }
    std::vector<std::string> topics;
    for (const QString& topic : msg.topics) {
        topics.push_back(topic.toStdString());
    }
    const auto size = RecordDataManager::GetResolutionTable().at(msg.resolution.toStdString());
    manager.SetTopicPerformanceVec(topics);
    manager.SetTopicResolutionMap(size);
    if (msg.skipEvaluation) {
        StartRecordDirect({});
        return;
    }
    status = RecordVideoStatus::Evaluating;
    evaluateWidget->Start();
    evaluator.Start(msg.useNvidiaEncoder, recordFolder.toStdString(), topics, size);
}

QString RecordVideoDataTool::EvaluationAdvice(int channels)
{
    if (channels > 0) {
        return QString("Based on the results of the recording evaluation, %1 channels are recommended.").arg(channels) +
               " Click <b>Yes</b> to record the current number of selected channels, <b>which may cause excessive "
               "system pressure.</b>";
    }
    return "Based on the results of the recording evaluation, it is recommended to reduce environmental stress or "
           "record resolution.";
}

void RecordVideoDataTool::ExecEvaluatedResult(bool passed)
{
    evaluateWidget->Finish();
    if (status != RecordVideoStatus::Evaluating) {
        return;
    }
    status = RecordVideoStatus::Idle;
    if (passed) {
        StartRecordDirect(evaluator.GetTopicEncoderMap());
        return;
    }
    const int channels = evaluator.GetRetEvaNums();
    const bool record = ask("Record Video", EvaluationAdvice(channels));
    if (record && channels > 0) {
        StartRecordDirect(evaluator.GetTopicEncoderMap());
    }
}

void RecordVideoDataTool::StartRecordDirect(const std::map<std::string, EncoderType>& encoders)
{
    manager.StartRecord(recordFolder.toStdString(), recordMsg.skipEvaluation, recordMsg.useNvidiaEncoder,
                        encoders);
    if (!manager.IsRecording()) {
        FinishRecord(false);
        return;
    }
    status = RecordVideoStatus::Recording;
    recordStart = std::chrono::steady_clock::now();
    lastWrittenBytes = 0;
    ShowRecordingPanel();
    tipsRecording->Start(recordFolder, static_cast<int>(manager.GetRecordedFiles().size()));
    statusTimer.start();
}

void RecordVideoDataTool::ShowRecordingPanel()
{
    // A window of the tool's own over the main window: rviz's panes would mark the configuration changed.
    if (tipsRecording == nullptr) {
        tipsRecording = new TipsRecordingWidget(MainWindow());
        tipsRecording->setWindowFlags(Qt::Tool);
        tipsRecording->setWindowTitle("Recording");
        connect(tipsRecording.data(), &TipsRecordingWidget::StopRecord, this, [this] { FinishRecord(true); });
    }
    tipsRecording->show();
    tipsRecording->raise();
}

void RecordVideoDataTool::UpdateRecordingStatus()
{
    if (status != RecordVideoStatus::Recording) {
        return;
    }
    const int64_t freeBytes = InquireStatus::GetCapacityInBit(recordFolder);
    if (freeBytes < minimumFreeBytes) {
        tipsCenter->ShowFinal("File capacity is less the 1GB. Video recording stops in advance.");
        FinishRecord(true);
        return;
    }
    int64_t written = 0;
    QStringList lost;
    for (const auto& [topic, file] : manager.GetRecordedFiles()) {
        const QFileInfo info(QString::fromStdString(file));
        if (file.empty()) {
            continue;
        }
        if (!info.exists()) {
            lost.append(info.fileName());
        }
        written += info.size();
    }
    if (!QFileInfo::exists(recordFolder)) {
        tipsCenter->ShowFinal("Recording Exception. Recording Failed. Error in folder " + recordFolder);
        FinishRecord(false);
        return;
    }
    if (!lost.isEmpty()) {
        tipsCenter->ShowFinal("Recording Exception. Failed to export the file " + lost.join(", ") + ". " +
                              QString::number(lost.size()) + " channels of files fail to be exported.");
    }
    const double bytesPerSecond = static_cast<double>(std::max<int64_t>(written - lastWrittenBytes, 0)) *
                                  1000.0 / statusInterval;
    lastWrittenBytes = written;
    const auto seconds =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - recordStart).count();
    tipsRecording->GetDisplayStatus()->Update(freeBytes, bytesPerSecond, seconds);
    detectorStatus.Update(manager.GetRecordingDuration());
}

void RecordVideoDataTool::FinishRecord(bool success)
{
    statusTimer.stop();
    if (tipsRecording != nullptr) {
        tipsRecording->Finished();
    }
    manager.CloseRecord();
    status = RecordVideoStatus::Idle;
    if (!tipsCenter->isVisible() || success) {
        tipsCenter->ShowFinal(success ? "Recording completed and exported." : "Failed to record and export.");
    }
}

} // namespace rviz_plugin

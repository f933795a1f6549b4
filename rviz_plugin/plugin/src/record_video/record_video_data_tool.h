#ifndef RVIZ_PLUGIN_RECORD_VIDEO_DATA_TOOL_H
#define RVIZ_PLUGIN_RECORD_VIDEO_DATA_TOOL_H

#include "record_center_widget.h"
#include "record_evaluate_widget.h"
#include "record_msg.h"
#include "tips_center_widget.h"
#include "tips_recording_widget.h"

#include "record_video_logic/detector_status.h"
#include "record_video_logic/record_data_evaluator.h"
#include "record_video_logic/record_data_manager.h"

#include <QPointer>
#include <QTimer>

#ifndef Q_MOC_RUN
#include <rviz/tool.h>
#endif

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>

namespace rviz_plugin {

// The way into recording: a preview of every camera and of the 3D view, the record dialog, the optional
// evaluation of how many channels this machine keeps up with, then the recording with its status panel.
class RecordVideoDataTool : public rviz::Tool {
    Q_OBJECT

public:
    static constexpr int statusInterval = 1000;

    RecordVideoDataTool();
    ~RecordVideoDataTool() override;

    void onInitialize() override;
    void activate() override;
    void deactivate() override;

    void StartRecord(const rviz_plugin::RecordMsg& msg);
    void FinishRecord(bool success);
    // The questions and warnings the tool asks; replaced in tests (true: the user said yes).
    void SetAsk(std::function<bool(const QString& title, const QString& text)> ask);

    RecordVideoStatus GetStatus() const { return status; }
    RecordCenterWidget* GetRecordCenterWidget() const { return centerWidget; }
    TipsCenterWidget* GetTipsCenterWidget() const { return tipsCenter; }
    TipsRecordingWidget* GetTipsRecordingWidget() const { return tipsRecording; }
    RecordEvaluateWidget* GetRecordEvaluateWidget() const { return evaluateWidget; }
    RecordDataManager& GetManager() { return manager; }
    // The folder of the running recording.
    const QString& GetRecordFolder() const { return recordFolder; }

    static QString ConvertCapturingStatus(int done, int total);
    static QString EvaluationAdvice(int channels);

private Q_SLOTS:
    void OnPreviewCapturing(int done, int total);
    void ShowPreviewWindow();
    void ExecEvaluatedResult(bool passed);
    void UpdateRecordingStatus();

private:
    bool MakeRecordFilePath(const QString& path);
    void StartRecordDirect(const std::map<std::string, EncoderType>& encoders);
    bool CheckNvEncoderSupported();
    void SetInteractToolAsDefaultTool();
    QWidget* MainWindow() const;
    void ShowRecordingPanel();

    RecordDataManager manager;
    RecordDataEvaluator evaluator;
    DetectorStatus detectorStatus;
    QTimer statusTimer;
    RecordVideoStatus status = RecordVideoStatus::Idle;
    RecordMsg recordMsg;
    QString recordFolder;
    std::chrono::steady_clock::time_point recordStart;
    int64_t lastWrittenBytes = 0;
    int nvidiaSupported = -1;
    std::function<bool(const QString&, const QString&)> ask;
    QPointer<RecordCenterWidget> centerWidget;
    QPointer<TipsCenterWidget> tipsCenter;
    QPointer<TipsRecordingWidget> tipsRecording;
    QPointer<RecordEvaluateWidget> evaluateWidget;
};

} // namespace rviz_plugin

#endif

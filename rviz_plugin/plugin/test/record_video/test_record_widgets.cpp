// The record tool's dialogs and status widgets: name checks, the disk reserve, the window count, the
// evaluation's progress and its stop question, and the texts of the tool's messages.
#include "record_video/display_status.h"
#include "record_video/record_center_widget.h"
#include "record_video/record_evaluate_widget.h"
#include "record_video/record_video_data_tool.h"
#include "record_video/tips_recording_widget.h"

#include "widgets/video_view_widget.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

using rviz_plugin::RecordCenterWidget;

namespace {
constexpr int64_t gib = 1024LL * 1024 * 1024;

QImage Picture()
{
    QImage image(64, 36, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    return image;
}
} // namespace

TEST(RecordCenterWidget, TypedNamesAreCheckedAndTheGeneratedOneIsTaken)
{
    EXPECT_EQ(RecordCenterWidget::VerifyCmdContent(""), "No content.");
    EXPECT_EQ(RecordCenterWidget::VerifyCmdContent("   "), "The command name can contain only letters, digits, _, -");
    EXPECT_EQ(RecordCenterWidget::VerifyCmdContent("drive 3"), "The command name can contain only letters, digits, _, -");
    EXPECT_EQ(RecordCenterWidget::VerifyCmdContent("drive_3-b"), "");

    RecordCenterWidget dialog(false);
    dialog.SetCapacityReader([](const QString&) { return 50 * gib; });
    dialog.AddRecordingWindow("/front_frameArray", "front", Picture());
    dialog.AddRecordingWindow("/rear_frameArray", "rear", QImage());
    EXPECT_EQ(dialog.GetSelectedLabel()->text(), "Recording window selected(1/2)");
    // The generated name holds ":" and is taken as it is.
    EXPECT_TRUE(dialog.GetTaskNameEdit()->text().contains(':'));
    EXPECT_TRUE(dialog.GetRecordButton()->isEnabled());
    dialog.GetTaskNameEdit()->setText("  ");
    EXPECT_FALSE(dialog.GetRecordButton()->isEnabled());
    dialog.GetTaskNameEdit()->setText("drive_3");
    EXPECT_TRUE(dialog.GetRecordButton()->isEnabled());

    dialog.GetRecordingWindows().value("/rear_frameArray")->SetChecked(true);
    EXPECT_EQ(dialog.GetSelectedLabel()->text(), "Recording window selected(2/2)");
    dialog.GetResolutionBox()->setCurrentText("720P");
    dialog.GetSkipEvaluationBox()->setChecked(true);
    dialog.GetFolderEdit()->setText("/data/records");
    QSignalSpy started(&dialog, &RecordCenterWidget::StartRecord);
    dialog.GetRecordButton()->click();
    ASSERT_EQ(started.count(), 1);
    const auto msg = started.first().at(0).value<rviz_plugin::RecordMsg>();
    EXPECT_EQ(msg.taskName, "drive_3");
    EXPECT_EQ(msg.folder, "/data/records");
    EXPECT_EQ(msg.resolution, "720P");
    EXPECT_TRUE(msg.skipEvaluation);
    EXPECT_FALSE(msg.useNvidiaEncoder);
    EXPECT_EQ(msg.topics, QStringList({"/front_frameArray", "/rear_frameArray"}));
}

TEST(RecordCenterWidget, LessThanAGibibyteBlocksRecordingAndTheNvidiaChoiceNeedsTheDevice)
{
    RecordCenterWidget dialog(false);
    EXPECT_TRUE(dialog.GetNvidiaEncoderBox()->isHidden());
    EXPECT_EQ(dialog.GetSkipEvaluationBox()->toolTip(), "Skip the video recording evaluation process.");
    dialog.AddRecordingWindow("/front_frameArray", "front", Picture());
    dialog.SetCapacityReader([](const QString&) { return gib - 1; });
    EXPECT_EQ(dialog.GetCapacityLabel()->text(), "Capacity: 1.00GB");
    EXPECT_EQ(dialog.GetCapacityWarning()->text(),
              "The memory capacity is less than 1 GB. Please clear the space and restart recording.");
    EXPECT_FALSE(dialog.GetRecordButton()->isEnabled());
    dialog.SetCapacityReader([](const QString&) { return gib; });
    EXPECT_TRUE(dialog.GetRecordButton()->isEnabled());
    EXPECT_TRUE(dialog.GetCapacityWarning()->text().isEmpty());

    RecordCenterWidget offered(true);
    EXPECT_FALSE(offered.GetNvidiaEncoderBox()->isHidden());
    EXPECT_EQ(offered.GetNvidiaEncoderBox()->toolTip(),
              "Enabling the Nvidia encoder improves recording performance, but results in large file sizes.");
}

TEST(RecordStatusWidgets, FiguresWarningsAndTheEvaluationProgress)
{
    rviz_plugin::DisplayStatus status;
    EXPECT_EQ(status.GetCapacityValue()->text(), "0.00GB");
    EXPECT_EQ(status.GetWriteSpeedValue()->text(), "0 KB/s");
    EXPECT_EQ(status.GetTimeValue()->text(), "00:00:00 / 00:00:00");
    status.Update(gib + 3600LL * 1024 * 1024, 1024.0 * 1024, 65);
    EXPECT_EQ(status.GetTimeValue()->text(), "00:01:05 / 01:00:00");
    EXPECT_EQ(status.GetWriteSpeedValue()->text(), "1.00 MB/s");

    rviz_plugin::TipsRecordingWidget tips;
    tips.UpdateWarnLabel(rviz_plugin::DetectedStatus::CpuOverload);
    EXPECT_EQ(tips.GetWarnLabel()->text(), "The CPU usage exceeds 80%.");
    tips.UpdateWarnLabel(rviz_plugin::DetectedStatus::FrameTimeOverload);
    EXPECT_EQ(tips.GetWarnLabel()->text(), "The time taken to record a frame of data exceeds 33ms.");
    tips.UpdateWarnLabel(rviz_plugin::DetectedStatus::CpuAndFrameTimeOverload);
    EXPECT_EQ(tips.GetWarnLabel()->text(),
              "The CPU usage exceeds 80% and the time taken to record a frame of data exceeds 33ms.");
    tips.UpdateWarnLabel(rviz_plugin::DetectedStatus::Normal);
    EXPECT_TRUE(tips.GetWarnLabel()->isHidden());

    rviz_plugin::RecordEvaluateWidget evaluation;
    evaluation.Start();
    EXPECT_EQ(evaluation.GetProgressLabel()->text(), "0% evaluated. The evaluation will be completed in 10s");
    evaluation.UpdateProgress(50, 3);
    EXPECT_EQ(evaluation.GetProgressLabel()->text(), "50% evaluated. The evaluation will be completed in 3s.");
    QSignalSpy cancelled(&evaluation, &rviz_plugin::RecordEvaluateWidget::CancelEvaluation);
    bool answer = false;
    evaluation.SetConfirmation([&answer] { return answer; });
    evaluation.close();
    EXPECT_TRUE(evaluation.isVisible());  // "No": the evaluation goes on
    answer = true;
    evaluation.close();
    EXPECT_FALSE(evaluation.isVisible());
    EXPECT_EQ(cancelled.count(), 1);
}

TEST(RecordVideoDataTool, AdviceAndCaptureTexts)
{
    using Tool = rviz_plugin::RecordVideoDataTool;
    EXPECT_EQ(Tool::EvaluationAdvice(3),
              "Based on the results of the recording evaluation, 3 channels are recommended. Click <b>Yes</b> to "
              "record the current number of selected channels, <b>which may cause excessive system pressure.</b>");
    EXPECT_EQ(Tool::EvaluationAdvice(0), "Based on the results of the recording evaluation, it is recommended to "
                                         "reduce environmental stress or record resolution.");
    EXPECT_EQ(Tool::ConvertCapturingStatus(1, 3), "Data is being captured...");
    EXPECT_EQ(Tool::ConvertCapturingStatus(-1, 3), "Data subscription error. Check whether the topic name used by "
                                                   "the sensor data publisher is correct.");
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qRegisterMetaType<rviz_plugin::RecordMsg>();
    return RUN_ALL_TESTS();
}

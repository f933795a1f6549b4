#include "tips_recording_widget.h"

#include "widgets/buttons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace rviz_plugin {

TipsRecordingWidget::TipsRecordingWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("TipsRecordingWidget");
    titleLabel = new QLabel(this);
    titleLabel->setStyleSheet("color: #E84A4A; font-weight: bold;");
    folderLabel = new QLabel(this);
    folderLabel->setWordWrap(true);
    displayStatus = new DisplayStatus(this);
    warnLabel = new QLabel(this);
    warnLabel->setWordWrap(true);
    warnLabel->setStyleSheet("color: #F5A623;");
    warnLabel->hide();
    stopButton = new PrimaryButton("Stop", this);
    auto* top = new QHBoxLayout();
    top->addWidget(titleLabel, 1);
    top->addWidget(stopButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(folderLabel);
    layout->addWidget(displayStatus);
    layout->addWidget(warnLabel);
    layout->addStretch(1);
    connect(stopButton, &QPushButton::clicked, this, &TipsRecordingWidget::StopRecord);
}

void TipsRecordingWidget::Start(const QString& folder, int channels)
{
    titleLabel->setText(QString("Recording %1 channels").arg(channels));
    folderLabel->setText(folder);
    displayStatus->Reset();
    warnLabel->hide();
    stopButton->setEnabled(true);
}

void TipsRecordingWidget::Finished()
{
    titleLabel->setText("Recording finished");
    stopButton->setEnabled(false);
    warnLabel->hide();
}

QString TipsRecordingWidget::WarningText(DetectedStatus status)
{
    switch (status) {
    case DetectedStatus::CpuOverload:
        return "The CPU usage exceeds 80%.";
    case DetectedStatus::FrameTimeOverload:
        return "The time taken to record a frame of data exceeds 33ms.";
    case DetectedStatus::CpuAndFrameTimeOverload:
        return "The CPU usage exceeds 80% and the time taken to record a frame of data exceeds 33ms.";
    case DetectedStatus::Normal:
        break;
    }
    return QString();
}

void TipsRecordingWidget::UpdateWarnLabel(DetectedStatus status)
{
    const QString text = WarningText(status);
    warnLabel->setText(text);
    warnLabel->setVisible(!text.isEmpty());
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_TIPS_RECORDING_WIDGET_H
#define RVIZ_PLUGIN_TIPS_RECORDING_WIDGET_H

#include "display_status.h"

#include "record_video_logic/detector_status.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace rviz_plugin {

// The small panel shown while recording: what is recorded, the figures, a warning when the machine cannot
// keep up, and the button that ends the recording.
class TipsRecordingWidget : public QWidget {
    Q_OBJECT

public:
    explicit TipsRecordingWidget(QWidget* parent = nullptr);
    void Start(const QString& folder, int channels);
    void Finished();
    void UpdateWarnLabel(rviz_plugin::DetectedStatus status);
    static QString WarningText(DetectedStatus status);

    DisplayStatus* GetDisplayStatus() const { return displayStatus; }
    QLabel* GetWarnLabel() const { return warnLabel; }
    QPushButton* GetStopButton() const { return stopButton; }

Q_SIGNALS:
    void StopRecord();

private:
    QLabel* titleLabel = nullptr;
    QLabel* folderLabel = nullptr;
    DisplayStatus* displayStatus = nullptr;
    QLabel* warnLabel = nullptr;
    QPushButton* stopButton = nullptr;
};

} // namespace rviz_plugin

#endif

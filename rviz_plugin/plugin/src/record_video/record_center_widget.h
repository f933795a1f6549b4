#ifndef RVIZ_PLUGIN_RECORD_CENTER_WIDGET_H
#define RVIZ_PLUGIN_RECORD_CENTER_WIDGET_H

#include "record_msg.h"

#include <QDialog>
#include <QImage>
#include <QMap>

#include <cstdint>
#include <functional>

class LineEditWithWarnLabel;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class VideoViewWidget;

namespace rviz_plugin {

// The "Record Video" dialog: task name, folder, format, resolution, the windows to record with their
// previews, the evaluation and encoder choices, and the free space of the folder.
class RecordCenterWidget : public QDialog {
    Q_OBJECT

public:
    static constexpr int windowsPerRow = 3;
    static constexpr int64_t minimumCapacity = 0x40000000;

    // nvidiaSupported: whether the NVIDIA encoder works here (the check box is offered only then).
    explicit RecordCenterWidget(bool nvidiaSupported, QWidget* parent = nullptr);

    // "" for a valid name, else the text that says why not.
    static QString VerifyCmdContent(const QString& name);
    static QString DefaultTaskName();

    // One recordable window: its topic, the name shown and its preview picture.
    void AddRecordingWindow(const QString& topic, const QString& name, const QImage& preview);
    void ClearRecordingWindows();
    // Shows the free space of the folder and blocks "Record" below a GiB.
    void UpdateCapacityValue();
    // The free bytes of a folder; replaced in tests.
    void SetCapacityReader(std::function<int64_t(const QString&)> reader);
    RecordMsg GetRecordMsg() const;

    QLineEdit* GetTaskNameEdit() const;
    QLineEdit* GetFolderEdit() const { return folderEdit; }
    QComboBox* GetResolutionBox() const { return resolutionBox; }
    QCheckBox* GetSkipEvaluationBox() const { return skipEvaluationBox; }
    QCheckBox* GetNvidiaEncoderBox() const { return nvidiaEncoderBox; }
    QPushButton* GetRecordButton() const { return recordButton; }
    QLabel* GetCapacityLabel() const { return capacityLabel; }
    QLabel* GetCapacityWarning() const { return capacityWarning; }
    QLabel* GetSelectedLabel() const { return selectedLabel; }
    const QMap<QString, VideoViewWidget*>& GetRecordingWindows() const { return windows; }

Q_SIGNALS:
    void StartRecord(const rviz_plugin::RecordMsg& msg);

private:
    void UpdateSelectedCount();
    void UpdateRecordButton();
    void ChooseFolder();
    void OnRecord();

    QString generatedTaskName;
    LineEditWithWarnLabel* taskName = nullptr;
    QLineEdit* folderEdit = nullptr;
    QComboBox* formatBox = nullptr;
    QComboBox* resolutionBox = nullptr;
    QLabel* selectedLabel = nullptr;
    QGridLayout* windowGrid = nullptr;
    QCheckBox* skipEvaluationBox = nullptr;
    QCheckBox* nvidiaEncoderBox = nullptr;
    QLabel* capacityLabel = nullptr;
    QLabel* capacityWarning = nullptr;
    QPushButton* recordButton = nullptr;
    QMap<QString, VideoViewWidget*> windows;
    std::function<int64_t(const QString&)> capacityReader;
    bool capacityEnough = true;
    bool nvidiaSupported = false;
};

} // namespace rviz_plugin

#endif

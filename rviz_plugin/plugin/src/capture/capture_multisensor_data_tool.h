#ifndef RVIZ_PLUGIN_CAPTURE_MULTISENSOR_DATA_TOOL_H
#define RVIZ_PLUGIN_CAPTURE_MULTISENSOR_DATA_TOOL_H

#include "message_widget.h"
#include "preview_center_widget.h"
#include "setting_widget.h"

#include "capture_logic/capture_data_manager.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

#ifndef Q_MOC_RUN
#include <rviz/tool.h>
#endif

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// Takes a short, time-aligned sample of the cameras and point clouds: the topics to take, the capture,
// a preview of the lined-up frames, and the PNG and PCD export of the topics kept.
class CaptureMultisensorDataTool : public rviz::Tool {
    Q_OBJECT

public:
    using Selection = std::vector<std::pair<std::string, std::string>>;
    static constexpr int defaultCaptureNumber = 1;

    CaptureMultisensorDataTool();
    ~CaptureMultisensorDataTool() override;

    void onInitialize() override;
    void activate() override;
    void deactivate() override;
    void load(const rviz::Config& config) override;
    void save(rviz::Config config) const override;

    // Captures the topics: one frame each, or the set number of frames.
    void StartCapture(const Selection& topics, bool multiFrame);
    // The topics offered for capture: the cameras' decoded pictures and the point clouds, with their types.
    Selection GetOfferedTopics() const;
    // Which topics to capture; replaced in tests (the default asks with a dialog of options).
    void SetTopicChooser(std::function<Selection(const Selection&)> chooser);
    static QString CaptureStatusText(CaptrueStatus status, bool multiFrame);
    static QString SaveErrorText(SaveErrorType type, const QString& path);

    int GetCaptureNumber() const { return captureNumber; }
    const QString& GetExportPath() const { return exportPath; }
    QAction* GetSingleAction() const { return singleAction; }
    QAction* GetMultiAction() const { return multiAction; }
    QAction* GetSettingAction() const { return settingAction; }
    MessageWidget* GetMessageWidget() const { return messageWidget; }
    PreviewCenterWidget* GetPreviewWidget() const { return previewWidget; }
    SettingWidget* GetSettingWidget() const { return settingWidget; }
    CaptureDataManager& GetManager() { return manager; }
    const QString& GetLastExport() const { return lastExport; }

private Q_SLOTS:
    void OnCaptureStatus(rviz_plugin::CaptrueStatus status, int count);
    void OnSaveProgress(int done, int total);

private:
    void ChooseAndCapture(bool multiFrame);
    void ShowSettings();
    void ShowPreview();
    void SaveTopics(const QVector<QString>& topics);
    void SetActionsEnabled(bool enabled);
    QWidget* MainWindow() const;
    Selection AskTopics(const Selection& offered);

    CaptureDataManager manager;
    int captureNumber = defaultCaptureNumber;
    QString exportPath;
    int toolButtonStyle = Qt::ToolButtonTextBesideIcon;
    bool multiFrame = false;
    int wanted = 1;
    QString lastExport;
    std::map<std::string, std::vector<ros::Time>> syncedStamps;
    std::map<std::string, std::map<ros::Time, QImage>> previewImages;
    std::function<Selection(const Selection&)> topicChooser;
    QMenu menu;
    QAction* singleAction = nullptr;
    QAction* multiAction = nullptr;
    QAction* settingAction = nullptr;
    QPointer<MessageWidget> messageWidget;
    QPointer<PreviewCenterWidget> previewWidget;
    QPointer<SettingWidget> settingWidget;
};

} // namespace rviz_plugin

#endif

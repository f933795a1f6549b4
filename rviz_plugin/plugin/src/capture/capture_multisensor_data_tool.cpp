#include "capture_multisensor_data_tool.h"

#include "option_widget.h"

#include "capture_logic/av_frame_data_handler.h"
#include "capture_logic/point_cloud2_data_handler.h"
#include "widgets/buttons.h"

#include "foundation/rviz_helpers.h"

#include <QCursor>
#include <QDir>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QScrollArea>
#include <QVBoxLayout>

#include <rviz/display_context.h>
#include <rviz/tool_manager.h>
#include <rviz/window_manager_interface.h>

namespace rviz_plugin {

CaptureMultisensorDataTool::CaptureMultisensorDataTool() : exportPath(QDir::homePath() + "/Downloads")
{
    shortcut_key_ = 'c';
    topicChooser = [this](const Selection& offered) { return AskTopics(offered); };
}

CaptureMultisensorDataTool::~CaptureMultisensorDataTool()
{
    manager.StopCapture();
    delete messageWidget;
    delete previewWidget;
    delete settingWidget;
}

QWidget* CaptureMultisensorDataTool::MainWindow() const
{
    return context_ != nullptr && context_->getWindowManager() != nullptr
               ? context_->getWindowManager()->getParentWindow()
               : nullptr;
}

void CaptureMultisensorDataTool::onInitialize()
{
    setName("Capture Multisensor Data");
    manager.Init();
    singleAction = menu.addAction("Capture Single-Frame Data");
    singleAction->setShortcut(QKeySequence("Ctrl+I"));
    multiAction = menu.addAction("Capture Multi-Frame Data");
    multiAction->setShortcut(QKeySequence("Ctrl+M"));
    settingAction = menu.addAction("Setting");
    if (QWidget* window = MainWindow()) {
        // The shortcuts work wherever the main window has the focus.
        window->addAction(singleAction);
        window->addAction(multiAction);
    }
    connect(singleAction, &QAction::triggered, this, [this] { ChooseAndCapture(false); });
    connect(multiAction, &QAction::triggered, this, [this] { ChooseAndCapture(true); });
    connect(settingAction, &QAction::triggered, this, &CaptureMultisensorDataTool::ShowSettings);
    messageWidget = new MessageWidget(MainWindow());
    previewWidget = new PreviewCenterWidget(MainWindow());
    settingWidget = new SettingWidget(MainWindow());
    connect(previewWidget.data(), &PreviewCenterWidget::SaveTopics, this, &CaptureMultisensorDataTool::SaveTopics);
    connect(&manager, &CaptureDataManager::SendCaptureStatusUpdate, this,
            &CaptureMultisensorDataTool::OnCaptureStatus);
    connect(&manager, &CaptureDataManager::SendSaveDataStatusUpdate, this,
            &CaptureMultisensorDataTool::OnSaveProgress);
    connect(&manager, &CaptureDataManager::SendSaveDataFailed, this,
            [this](const std::string& /*topic*/, SaveErrorType type, const QString& path) {
                messageWidget->ShowFailure(SaveErrorText(type, path));
            });
    connect(&manager, &CaptureDataManager::SendSaveConflict, this, [this](const std::string& /*topic*/) {
        QMessageBox::warning(MainWindow(), "Failed to export",
                             "Failed to export data because entries with same timestamps exist in the received "
                             "data. Check whether any exceptions exist in the data source.");
    });
    connect(&manager, &CaptureDataManager::SendMkdirFailed, this, [this](const QString& folder) {
        QMessageBox::warning(MainWindow(), "Failed to Save", "Failed to mkdir " + folder);
        messageWidget->ShowFailure("Failed to save " + folder);
    });
}

void CaptureMultisensorDataTool::activate()
{
    if (singleAction->isEnabled()) {
        menu.popup(QCursor::pos());
    }
    rviz::Tool* interact = GetInteractToolButton(context_->getToolManager());
    if (interact != nullptr && interact != this) {
        context_->getToolManager()->setCurrentTool(interact);
    }
}

void CaptureMultisensorDataTool::deactivate() {}

void CaptureMultisensorDataTool::load(const rviz::Config& config)
{
    rviz::Tool::load(config);
    int number = captureNumber;
    if (config.mapGetInt("CaptureNumber", &number)) {
        captureNumber = std::clamp(number, CaptureDataManager::minCaptureNumber, CaptureDataManager::maxCaptureNumber);
    }
    QString path;
    if (config.mapGetString("Exportpath", &path) && !path.isEmpty()) {
        exportPath = path;
    }
    config.mapGetInt("ToolButtonStyle", &toolButtonStyle);
}

void CaptureMultisensorDataTool::save(rviz::Config config) const
{
    rviz::Tool::save(config);
    config.mapSetValue("CaptureNumber", captureNumber);
    config.mapSetValue("Exportpath", exportPath);
    config.mapSetValue("ToolButtonStyle", toolButtonStyle);
}

void CaptureMultisensorDataTool::ShowSettings()
{
    settingWidget->SetValues(captureNumber, exportPath);
    if (settingWidget->exec() == QDialog::Accepted) {
        captureNumber = settingWidget->GetCaptureNumber();
        exportPath = settingWidget->GetExportPath();
    }
}

CaptureMultisensorDataTool::Selection CaptureMultisensorDataTool::GetOfferedTopics() const
{
    Selection offered;
    for (const char* type : {AvFrameDataHandler::topicType, PointCloud2DataHandler::topicType}) {
        for (const auto& topic : manager.GetTopicList(type)) {
            offered.emplace_back(topic, type);
        }
    }
    return offered;
}

void CaptureMultisensorDataTool::SetTopicChooser(std::function<Selection(const Selection&)> chooser)
{
    topicChooser = std::move(chooser);
}

CaptureMultisensorDataTool::Selection CaptureMultisensorDataTool::AskTopics(const Selection& offered)
{
    QDialog dialog(MainWindow());
    dialog.setWindowTitle("Capture Multisensor Data");
    auto* list = new QWidget(&dialog);
    auto* listLayout = new QVBoxLayout(list);
    std::vector<OptionWidget*> options;
    for (const auto& [topic, type] : offered) {
        auto* option = new OptionWidget(QString::fromStdString(topic), QString::fromStdString(type), list);
        option->SetChecked(true);
        listLayout->addWidget(option);
        options.push_back(option);
    }
    listLayout->addStretch(1);
    auto* scroll = new QScrollArea(&dialog);
    scroll->setWidget(list);
    scroll->setWidgetResizable(true);
    auto* capture = new PrimaryButton("Capture", &dialog);
    capture->setDefault(true);
    auto* cancel = new SecondaryButton("Cancel", &dialog);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    buttons->addWidget(capture);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(scroll, 1);
    layout->addLayout(buttons);
    dialog.resize(480, 360);
    connect(capture, &QPushButton::clicked, &dialog, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    Selection chosen;
    if (dialog.exec() == QDialog::Accepted) {
        for (const OptionWidget* option : options) {
            if (option->IsChecked()) {
                chosen.emplace_back(option->GetTopic().toStdString(), option->GetType().toStdString());
            }
        }
    }
    return chosen;
}

void CaptureMultisensorDataTool::ChooseAndCapture(bool multi)
{
    const Selection chosen = topicChooser(GetOfferedTopics());
    if (!chosen.empty()) {
        StartCapture(chosen, multi);
    }
}

void CaptureMultisensorDataTool::SetActionsEnabled(bool enabled)
{
    singleAction->setEnabled(enabled);
    multiAction->setEnabled(enabled);
    settingAction->setEnabled(enabled);
}

void CaptureMultisensorDataTool::StartCapture(const Selection& topics, bool multi)
{
    multiFrame = multi;
    wanted = multi ? captureNumber : 1;
    SetActionsEnabled(false);
    messageWidget->ShowMessage(CaptureStatusText(CaptrueStatus::Capturing, multi));
    messageWidget->SetCount(0, wanted);
    manager.StartCapture(topics, wanted);
}

QString CaptureMultisensorDataTool::CaptureStatusText(CaptrueStatus status, bool multi)
{
    switch (status) {
    case CaptrueStatus::Capturing:
        return "Data is being captured...";
    case CaptrueStatus::Success:
        return "Data capture success. Start data synchronization...";
    case CaptrueStatus::TimedOut:
        return multi ? "Data capture timeout. Check whether the data publish frequency of the sensor data publisher "
                       "is normal."
                     : "Data capture timed out. Check whether the data publish frequency of the sensor data "
                       "publisher is normal.";
    case CaptrueStatus::SubscriptionError:
        break;
    }
    return "Data subscription error. Check whether the topic name used by the sensor data publisher is correct.";
}

QString CaptureMultisensorDataTool::SaveErrorText(SaveErrorType type, const QString& path)
{
    switch (type) {
    case FolderError:
        return QString("Data export error. Check whether %1 is correct.").arg(path);
    case WriteError:
        return "Data export error. Check whether the system disk space is sufficient.";
    case NoImageData:
        return "Image data export error. No image data is available. Try again.";
    case NoPointCloudData:
        return "Point cloud data export error. No compressed point cloud data is available. Try again.";
    case CloudTooLarge:
        break;
    }
    return "Point cloud data export error. The compressed point cloud data in a single frame exceeds 2863311530 "
           "bytes.";
}

void CaptureMultisensorDataTool::OnCaptureStatus(CaptrueStatus status, int count)
{
    if (status == CaptrueStatus::Capturing) {
        messageWidget->SetCount(count, wanted);
        return;
    }
    SetActionsEnabled(true);
    if (status != CaptrueStatus::Success) {
        messageWidget->ShowFailure(CaptureStatusText(status, multiFrame));
        return;
    }
    messageWidget->ShowMessage(CaptureStatusText(status, multiFrame));
    ShowPreview();
}

void CaptureMultisensorDataTool::ShowPreview()
{
    syncedStamps = manager.GetSyncCaptureDataHeaderStamps();
    const int frames = syncedStamps.empty() ? 0 : static_cast<int>(syncedStamps.begin()->second.size());
    if (frames == 0) {
        messageWidget->ShowFailure("Data synchronization error. Synchronization cannot be performed based on the "
                                   "timestamp in the subscribed sensor data.");
        return;
    }
    previewImages.clear();
    QStringList topics;
    for (const auto& [topic, stamps] : syncedStamps) {
        previewImages[topic] = manager.GetImages(topic, stamps);
        topics.append(QString::fromStdString(topic));
    }
    previewWidget->SetData(topics, frames, [this](const QString& topic, int frame) {
        const std::string name = topic.toStdString();
        const auto stamps = syncedStamps.find(name);
        if (stamps == syncedStamps.end() || frame < 0 || frame >= static_cast<int>(stamps->second.size())) {
            return QImage();
        }
        const auto& images = previewImages[name];
        const auto image = images.find(stamps->second[static_cast<std::size_t>(frame)]);
        return image == images.end() ? QImage() : image->second;
    });
    messageWidget->hide();
    previewWidget->show();
    previewWidget->raise();
}

void CaptureMultisensorDataTool::SaveTopics(const QVector<QString>& topics)
{
    if (topics.isEmpty()) {
        return;
    }
    messageWidget->ShowMessage("Exporting data...");
    messageWidget->SetCount(0, topics.size());
    lastExport = manager.SaveData(topics, exportPath, multiFrame ? "MultiFrame" : "SingleFrame");
}

void CaptureMultisensorDataTool::OnSaveProgress(int done, int total)
{
    messageWidget->SetCount(done, total);
    if (done == total && total > 0) {
        messageWidget->ShowMessage("Data exported.");
        messageWidget->SetFolder(lastExport);
    }
}

} // namespace rviz_plugin

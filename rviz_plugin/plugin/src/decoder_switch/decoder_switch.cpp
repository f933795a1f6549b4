#include "decoder_switch.h"

#include "decoder_switch_dialogs.h"
#include "video_handler.h"

#include "foundation/config_load_guard.h"
#include "foundation/logger.h"
#include "foundation/rviz_helpers.h"

#ifndef Q_MOC_RUN
#include <rviz/display_context.h>
#include <rviz/properties/enum_property.h>
#include <rviz/tool_manager.h>
#include <rviz/window_manager_interface.h>
#endif

namespace rviz_plugin {

namespace {
const char* const logModule = "DecodeSwitch";
constexpr int cpuPeriodMs = 1000;
constexpr int pumpPeriodMs = 20;
constexpr uint32_t topicQueueSize = 30;
} // namespace

DecoderSwitch::DecoderSwitch()
{
    shortcut_key_ = 'd';
}

DecoderSwitch::~DecoderSwitch()
{
    delete selectDialog;
    delete alarmDialog;
    delete detailDialog;
}

void DecoderSwitch::onInitialize()
{
    decoderSelectionProperty = new CheckedEnumProperty(
        "Decoder Selection", "Software", "The property to save the decoder selection of the switch.",
        getPropertyContainer());
    for (int mode : {custom::DecoderInfo::SOFTWARE_DECODING_MODE, custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE,
                     custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE}) {
        decoderSelectionProperty->AddOption(DecoderSwitchResult::ModeName(mode), mode);
    }
    cpuUsageHandler = std::make_unique<Orsa::CpuUsageHandler>();
    cpuUsageHandler->InitCpuUsageThreshold(cpuUsageLimit);
    cpuUsageHandler->UpdateCpuTimeRecord();
    connect(&cpuTimer, &QTimer::timeout, this, &DecoderSwitch::UpdateCpuUsage);
    cpuTimer.start(cpuPeriodMs);

    nodeHandle.setCallbackQueue(&callbackQueue);
    inquirePublisher = nodeHandle.advertise<custom::DecoderInfo>("/inquire_decoder_number", topicQueueSize);
    selectionPublisher = nodeHandle.advertise<custom::DecoderInfo>("/decoder_selection_mode", topicQueueSize);
    numberSubscriber = nodeHandle.subscribe<custom::DecoderInfo>("/decoder_number", topicQueueSize,
                                                                 &DecoderSwitch::StatisticsDecoderNumber, this);
    informationSubscriber = nodeHandle.subscribe<custom::DecoderInfo>(
        "/decoder_information", topicQueueSize, &DecoderSwitch::StatisticsDecoderInformation, this);
    connect(&pumpTimer, &QTimer::timeout, this, &DecoderSwitch::PumpCallbacks);
    pumpTimer.start(pumpPeriodMs);
    answerTimer.setSingleShot(true);
    connect(&answerTimer, &QTimer::timeout, this, &DecoderSwitch::OnAnswerTimeout);
    connect(this, &DecoderSwitch::ReceiveAllDecodersInfo, this, &DecoderSwitch::ShowDecodersSwitchResult);
}

void DecoderSwitch::UpdateCpuUsage()
{
    cpuUsageHandler->CalculateCpuUsage();
}

void DecoderSwitch::PumpCallbacks()
{
    callbackQueue.callAvailable();
}

void DecoderSwitch::activate()
{
    if (selectDialog != nullptr || alarmDialog != nullptr || isWaiting) {
        return;
    }
    UpdateDecoderNumber();
    SwitchDecoderSelectionMode();
}

void DecoderSwitch::deactivate() {}

void DecoderSwitch::UpdateDecoderNumber()
{
    decoderCount = 0;
    InquireDecoderNumber();
}

void DecoderSwitch::InquireDecoderNumber()
{
    custom::DecoderInfo inquiry;
    inquiry.isInquiring = true;
    inquirePublisher.publish(inquiry);
}

void DecoderSwitch::StatisticsDecoderNumber(const custom::DecoderInfo::ConstPtr& msg)
{
    if (isWaiting || msg == nullptr) {
        return;
    }
    decoderCount = msg->decoderNum;
    Q_EMIT ReceiveDecoderNumInfo();
}

void DecoderSwitch::SwitchDecoderSelectionMode()
{
    QWidget* parent = context_->getWindowManager() != nullptr ? context_->getWindowManager()->getParentWindow()
                                                              : nullptr;
    selectDialog = new DecoderTypeSelectDlg(decoderSelectionProperty->getOptionInt(), parent);
    // A finished dialog goes; activating the tool again makes a new one.
    connect(selectDialog, &QDialog::finished, selectDialog, &QObject::deleteLater);
    connect(selectDialog, &QDialog::accepted, this, &DecoderSwitch::OnDecoderSelected);
    connect(selectDialog, &QDialog::rejected, this, &DecoderSwitch::SetInteractToolAsDefaultTool);
    selectDialog->open();
}

void DecoderSwitch::OnDecoderSelected()
{
    const int mode = selectDialog != nullptr ? selectDialog->GetSelectedMode() : -1;
    if (mode < 0) {
        SetInteractToolAsDefaultTool();
        return;
    }
    QString warning;
    if (!IsNeededToDisplayWarning(mode, cpuUsageHandler->IsCpuStatError(), cpuUsageHandler->GetSystemCpuUsage(),
                                  cpuUsageLimit, warning)) {
        PublishDecoderSetting(mode);
        return;
    }
    alarmDialog = new DecoderMessageBoxAlarm(warning, selectDialog != nullptr ? selectDialog->parentWidget() : nullptr);
    connect(alarmDialog, &QDialog::finished, alarmDialog, &QObject::deleteLater);
    connect(alarmDialog, &QDialog::accepted, this, [this, mode]() { PublishDecoderSetting(mode); });
    connect(alarmDialog, &QDialog::rejected, this, &DecoderSwitch::SetInteractToolAsDefaultTool);
    alarmDialog->open();
}

bool DecoderSwitch::IsNeededToDisplayWarning(int mode, bool cpuUnknown, double cpuUsage, double limit,
                                             QString& warning)
{
    if (cpuUnknown) {
        warning = "The CPU usage cannot be obtained. Switching may cause frame freezing.\nAre you sure you want to "
                  "proceed?";
        return true;
    }
    if (mode == custom::DecoderInfo::SOFTWARE_DECODING_MODE && cpuUsage > limit) {
        warning = "The CPU usage is high. Switching the decoding mode of all KORA Vision decoders from hardware to "
                  "software will increase the CPU usage and frame freezing of the Orsa interface.\nAre you sure you "
                  "want to proceed?";
        return true;
    }
    return false;
}

void DecoderSwitch::PublishDecoderSetting(int mode)
{
    result.Start(mode, decoderCount);
    Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Info,
                                         QString("Switching %1 decoders to %2 decoders.")
                                             .arg(decoderCount)
                                             .arg(DecoderSwitchResult::ModeName(mode))
                                             .toStdString());
    if (decoderCount == 0) {
        ShowDecodersSwitchResult();
        return;
    }
    isWaiting = true;
    custom::DecoderInfo setting;
    setting.targetMode = mode;
    selectionPublisher.publish(setting);
    answerTimer.start(answerTimeout);
}

void DecoderSwitch::StatisticsDecoderInformation(const custom::DecoderInfo::ConstPtr& msg)
{
    if (!isWaiting || msg == nullptr) {
        return;
    }
    if (result.AddAnswer(QString::fromStdString(msg->decoderTopic.data), msg->resultCode)) {
        Q_EMIT ReceiveAllDecodersInfo();
    }
}

void DecoderSwitch::OnAnswerTimeout()
{
    if (!isWaiting) {
        return;
    }
    result.AddMissing(VideoHandler::GetDecoderTopics());
    Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Warn,
                                         "Not every decoder answered the switch within 5 s.");
    ShowDecodersSwitchResult();
}

void DecoderSwitch::ShowDecodersSwitchResult()
{
    isWaiting = false;
    answerTimer.stop();
    SaveSwitchResult();
    QWidget* parent = context_->getWindowManager() != nullptr ? context_->getWindowManager()->getParentWindow()
                                                              : nullptr;
    delete detailDialog;
    detailDialog = new DecoderMessageBoxDetail(result.SummaryText(), result.DetailLines(), parent);
    connect(detailDialog, &QDialog::finished, detailDialog, &QObject::deleteLater);
    detailDialog->open();
    Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Info, result.SummaryText().toStdString());
    SetInteractToolAsDefaultTool();
}

void DecoderSwitch::SaveSwitchResult()
{
    decoderSelectionProperty->setString(DecoderSwitchResult::ModeName(result.GetMode()));
}

void DecoderSwitch::SetInteractToolAsDefaultTool()
{
    rviz::Tool* interact = GetInteractToolButton(context_->getToolManager());
    if (interact != nullptr) {
        context_->getToolManager()->setCurrentTool(interact);
    }
}

void DecoderSwitch::load(const rviz::Config& config)
{
    const ConfigLoadGuard guard(getPropertyContainer());
    rviz::Tool::load(config);
    getPropertyContainer()->load(config);
    guard.RestoreInvalid(config);
}

void DecoderSwitch::save(rviz::Config config) const
{
    rviz::Tool::save(config);
    getPropertyContainer()->save(config);
}

} // namespace rviz_plugin

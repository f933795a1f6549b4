#ifndef RVIZ_PLUGIN_DECODER_SWITCH_H
#define RVIZ_PLUGIN_DECODER_SWITCH_H

#include "decoder_switch_dialogs.h"
#include "decoder_switch_result.h"

#include "foundation/cpu_usage_handler.h"

#include <QPointer>
#include <QTimer>

#ifndef Q_MOC_RUN
#include <custom/DecoderInfo.h>
#include <ros/callback_queue.h>
#include <ros/ros.h>
#include <rviz/tool.h>
#endif

#include <chrono>
#include <memory>

namespace rviz_plugin {

class CheckedEnumProperty;

// Tool-bar button that switches the decoders of all video items at once. It counts the decoders,
// sends the chosen mode, collects each decoder's answer and reports them. Its ROS callbacks run on a
// queue of its own that a timer pumps on the GUI thread; nothing waits for an answer.
class DecoderSwitch : public rviz::Tool {
    Q_OBJECT
public:
    DecoderSwitch();
    ~DecoderSwitch() override;

    void onInitialize() override;
    void activate() override;
    void deactivate() override;
    void load(const rviz::Config& config) override;
    void save(rviz::Config config) const override;

    // Whether a switch to mode asks first, and with which text: a switch to software decoding while
    // the processor is busier than limit (a fraction), or any switch when the load cannot be read.
    static bool IsNeededToDisplayWarning(int mode, bool cpuUnknown, double cpuUsage, double limit, QString& warning);

    DecoderTypeSelectDlg* GetSelectDialog() const { return selectDialog; }
    DecoderMessageBoxAlarm* GetAlarmDialog() const { return alarmDialog; }
    DecoderMessageBoxDetail* GetDetailDialog() const { return detailDialog; }
    const DecoderSwitchResult& GetResult() const { return result; }
    // How long the answers are awaited.
    static constexpr std::chrono::milliseconds answerTimeout{5000};

Q_SIGNALS:
    void ReceiveDecoderNumInfo();
    void ReceiveAllDecodersInfo();

private Q_SLOTS:
    void UpdateCpuUsage();
    void PumpCallbacks();
    void OnDecoderSelected();
    void OnAnswerTimeout();
    void ShowDecodersSwitchResult();

private:
    void UpdateDecoderNumber();
    void InquireDecoderNumber();
    void StatisticsDecoderNumber(const custom::DecoderInfo::ConstPtr& msg);
    void SwitchDecoderSelectionMode();
    void PublishDecoderSetting(int mode);
    void StatisticsDecoderInformation(const custom::DecoderInfo::ConstPtr& msg);
    void SaveSwitchResult();
    void SetInteractToolAsDefaultTool();

    const double cpuUsageLimit = 0.5;
    QTimer cpuTimer;
    QTimer pumpTimer;
    QTimer answerTimer;
    CheckedEnumProperty* decoderSelectionProperty = nullptr;
    bool isWaiting = false;
    int decoderCount = 0;
    DecoderSwitchResult result;
    std::unique_ptr<Orsa::CpuUsageHandler> cpuUsageHandler;
    ros::CallbackQueue callbackQueue;
    ros::NodeHandle nodeHandle;
    ros::Publisher inquirePublisher;
    ros::Publisher selectionPublisher;
    ros::Subscriber numberSubscriber;
    ros::Subscriber informationSubscriber;
    QPointer<DecoderTypeSelectDlg> selectDialog;
    QPointer<DecoderMessageBoxAlarm> alarmDialog;
    QPointer<DecoderMessageBoxDetail> detailDialog;
};

} // namespace rviz_plugin

#endif

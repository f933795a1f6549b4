#include "display_status.h"

#include "record_video_logic/inquire_status.h"

#include <QFormLayout>
#include <QLabel>

namespace rviz_plugin {

DisplayStatus::DisplayStatus(QWidget* parent) : QWidget(parent)
{
    setObjectName("DisplayStatus");
    capacityValue = new QLabel(this);
    writeSpeedValue = new QLabel(this);
    timeValue = new QLabel(this);
    auto* layout = new QFormLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addRow("Capacity", capacityValue);
    layout->addRow("Write Speed", writeSpeedValue);
    layout->addRow("Recorded/Recordable", timeValue);
    Reset();
}

void DisplayStatus::Reset()
{
    capacityValue->setText("0.00GB");
    writeSpeedValue->setText("0 KB/s");
    timeValue->setText("00:00:00 / 00:00:00");
}

void DisplayStatus::Update(int64_t freeBytes, double bytesPerSecond, int64_t recordedSeconds)
{
    capacityValue->setText(InquireStatus::FormatCapacity(freeBytes));
    writeSpeedValue->setText(InquireStatus::FormatWriteSpeed(bytesPerSecond));
    timeValue->setText(QString("%1 / %2")
                           .arg(InquireStatus::FormatDuration(recordedSeconds))
                           .arg(InquireStatus::RecordableTime(freeBytes, bytesPerSecond)));
}

} // namespace rviz_plugin

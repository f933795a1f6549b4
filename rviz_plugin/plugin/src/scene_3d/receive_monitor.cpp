#include "receive_monitor.h"

#ifndef Q_MOC_RUN
#include <rviz/display.h>
#endif

namespace rviz_plugin {

namespace {
const char* const statusName = "Data receiving failure";
constexpr int checkMs = 1000;
} // namespace

ReceiveMonitor::ReceiveMonitor(rviz::Display* owner, QString statusText, std::function<unsigned()> count)
    : QObject(owner), display(owner), text(std::move(statusText)), receivedCount(std::move(count))
{
    connect(&timer, &QTimer::timeout, this, &ReceiveMonitor::CheckIfRecvFrameInSecond);
    timer.start(checkMs);
}

void ReceiveMonitor::CheckIfRecvFrameInSecond()
{
    const unsigned count = receivedCount();
    if (count == lastCount) {
        display->setStatus(rviz::StatusProperty::Warn, statusName, text);
    } else {
        display->deleteStatus(statusName);
    }
    lastCount = count;
}

} // namespace rviz_plugin

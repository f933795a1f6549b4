#include "frame_gate.h"

#include <algorithm>

namespace rviz_plugin {

FrameGate::FrameGate(int framePeriodMs, QObject* parent) : QObject(parent), framePeriodMs(framePeriodMs)
{
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &FrameGate::OnTimeout);
}

void FrameGate::Request()
{
    if (!requested.exchange(true)) {
        QMetaObject::invokeMethod(this, "Schedule", Qt::QueuedConnection);
    }
}

void FrameGate::Schedule()
{
    const qint64 wait = sinceOpen.isValid() ? std::max<qint64>(0, framePeriodMs - sinceOpen.elapsed()) : 0;
    timer.start(static_cast<int>(wait));
}

void FrameGate::OnTimeout()
{
    // Cleared first: a request that comes while the receivers take their values schedules one more.
    requested = false;
    sinceOpen.restart();
    Q_EMIT Open();
}

} // namespace rviz_plugin

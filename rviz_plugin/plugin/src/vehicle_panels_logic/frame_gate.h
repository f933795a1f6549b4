#ifndef RVIZ_PLUGIN_FRAME_GATE_H
#define RVIZ_PLUGIN_FRAME_GATE_H

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <atomic>

namespace rviz_plugin {

// Turns any number of requests, from any thread, into at most one Open() a frame period in the
// thread the gate lives in: a burst of messages costs the GUI one hand-over and one repaint a frame.
class FrameGate : public QObject {
    Q_OBJECT
public:
    explicit FrameGate(int framePeriodMs, QObject* parent = nullptr);

    // Thread-safe; cheap when a request is already waiting.
    void Request();

Q_SIGNALS:
    void Open();

private Q_SLOTS:
    void Schedule();
    void OnTimeout();

private:
    int framePeriodMs;
    QTimer timer;
    QElapsedTimer sinceOpen;
    std::atomic<bool> requested{false};
};

} // namespace rviz_plugin

#endif

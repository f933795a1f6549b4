#ifndef RVIZ_PLUGIN_RECEIVE_MONITOR_H
#define RVIZ_PLUGIN_RECEIVE_MONITOR_H

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

namespace rviz {
class Display;
}

namespace rviz_plugin {

// Once a second, raises the warning "Data receiving failure" with text on display when its received count did
// not move since the last tick, and deletes it when it did.
class ReceiveMonitor : public QObject {
    Q_OBJECT
public:
    ReceiveMonitor(rviz::Display* display, QString text, std::function<unsigned()> receivedCount);

    // Forgets the last count (the display's count starts again).
    void Reset() { lastCount = 0; }

private Q_SLOTS:
    void CheckIfRecvFrameInSecond();

private:
    rviz::Display* display;
    QString text;
    std::function<unsigned()> receivedCount;
    QTimer timer;
    unsigned lastCount = 0;
};

} // namespace rviz_plugin

#endif

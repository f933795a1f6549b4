#ifndef RVIZ_PLUGIN_STATUS_SINK_H
#define RVIZ_PLUGIN_STATUS_SINK_H

#include <QString>

namespace rviz_plugin {

// Where the checks of a display report: a named entry of the display's status tree. Levels as rviz
// numbers them.
class StatusSink {
public:
    enum Level { Ok = 0, Warn = 1, Error = 2 };

    virtual ~StatusSink() = default;
    virtual void SetStatus(Level level, const QString& name, const QString& text) = 0;
    virtual void DeleteStatus(const QString& name) = 0;
};

// Tells, once a second, whether a display received nothing since the last tick.
class ReceiveWatchdog {
public:
    // True when count did not move since the previous call; the count is then remembered.
    bool NothingSince(unsigned count)
    {
        const bool silent = count == lastCount;
        lastCount = count;
        return silent;
    }
    void Reset() { lastCount = 0; }

private:
    unsigned lastCount = 0;
};

} // namespace rviz_plugin

#endif

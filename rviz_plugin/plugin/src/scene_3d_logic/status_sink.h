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

} // namespace rviz_plugin

#endif

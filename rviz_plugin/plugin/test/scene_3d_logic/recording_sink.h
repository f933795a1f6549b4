#ifndef RVIZ_PLUGIN_TEST_RECORDING_SINK_H
#define RVIZ_PLUGIN_TEST_RECORDING_SINK_H

#include "scene_3d_logic/status_sink.h"

#include <map>
#include <utility>

// The status tree of a display as the checks leave it: name -> (level, text).
class RecordingSink : public rviz_plugin::StatusSink {
public:
    void SetStatus(Level level, const QString& name, const QString& text) override { statuses[name] = {level, text}; }
    void DeleteStatus(const QString& name) override { statuses.erase(name); }

    bool Has(const QString& name) const { return statuses.count(name) != 0; }
    Level LevelOf(const QString& name) const { return statuses.at(name).first; }
    QString TextOf(const QString& name) const { return statuses.at(name).second; }

    std::map<QString, std::pair<Level, QString>> statuses;
};

#endif

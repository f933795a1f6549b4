#ifndef RVIZ_PLUGIN_RECORD_MSG_H
#define RVIZ_PLUGIN_RECORD_MSG_H

#include <QMetaType>
#include <QString>
#include <QStringList>

namespace rviz_plugin {

// What the record dialog hands to the tool.
struct RecordMsg {
    QString folder;
    QString taskName;
    QString resolution = "480P";
    bool skipEvaluation = false;
    bool useNvidiaEncoder = false;
    QStringList topics;
};

// Where the tool is with a recording.
enum class RecordVideoStatus { Idle = 0, Previewing = 1, Evaluating = 2, Recording = 3 };

} // namespace rviz_plugin

Q_DECLARE_METATYPE(rviz_plugin::RecordMsg)

#endif

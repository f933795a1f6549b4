#ifndef RVIZ_PLUGIN_SAVE_THREAD_BASE_H
#define RVIZ_PLUGIN_SAVE_THREAD_BASE_H

#include "capture_types.h"

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QThread>

#ifndef Q_MOC_RUN
#include <ros/time.h>
#endif

#include <string>

namespace rviz_plugin {

// What the savers of every sensor share: their folder under the export folder and the file names
// "<name>-<sec>-<nsec>.<extension>". Exactly one of SaveSucceeded, SaveFailed and SaveConflicting ends a run.
class SaveThreadBase : public QThread {
    Q_OBJECT

public:
    // The name of a topic in file names: its camera name (custom name included), "suffix" stripped.
    static QString ExportName(const std::string& topic, const std::string& suffix);
    static QString FileName(const QString& name, const ros::Time& stamp, const QString& extension);

Q_SIGNALS:
    void SaveFailed(int type, const QString& path);
    void SaveConflicting();
    void SaveSucceeded();

protected:
    SaveThreadBase(QString exportFolder, QString exportName);
    // Makes the topic's folder; false (and SaveFailed(0)) when it cannot be made.
    bool MakeFolder();
    // The path of the stamp's file; false (and SaveConflicting) when it exists already.
    bool FreePath(const ros::Time& stamp, const QString& extension, QString& path);

    QString folder;
    QString name;
};

} // namespace rviz_plugin

#endif

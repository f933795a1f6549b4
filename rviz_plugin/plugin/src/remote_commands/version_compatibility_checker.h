#ifndef RVIZ_PLUGIN_VERSION_COMPATIBILITY_CHECKER_H
#define RVIZ_PLUGIN_VERSION_COMPATIBILITY_CHECKER_H

#include "version_file.h"

#include <QObject>
#include <QString>

#include <memory>

namespace rviz_plugin {

class ConnectionManager;
class ReadJsonFileCommand;

// After a login: the interface versions of <orsaPath>version.json against the car's /etc/version.json.
// CheckFinished(remoteVersion, resultText, localVersion): the versions of the first local interface on
// both sides, and "Compatible", "Partially compatible", "Incompatible" or "Unknown".
class VersionCompatibilityChecker : public QObject {
    Q_OBJECT
public:
    static constexpr const char* remoteVersionFile = "/etc/version.json";

    VersionCompatibilityChecker();
    ~VersionCompatibilityChecker() override;

    // remoteFile: the car's version file (tests point it elsewhere).
    void Init(ConnectionManager* manager, const QString& remoteFile = remoteVersionFile);
    void Check();
    bool IsChecking() const { return isChecking; }
    // Compares the local file with remote text; returns (remote version, result, local version).
    std::tuple<QString, QString, QString> Compare(const QString& remoteText) const;

Q_SIGNALS:
    void CheckFinished(const QString& remoteVersion, const QString& resultText, const QString& localVersion);

private:
    void OnReadJsonFileFinished(const QString& text);
    void OnReadJsonFileFailed(const QString& reason);

    QString localPath;
    bool isChecking = false;
    std::unique_ptr<ReadJsonFileCommand> readJsonFileCommand;
};

} // namespace rviz_plugin

#endif

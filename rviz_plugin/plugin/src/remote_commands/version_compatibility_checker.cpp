#include "version_compatibility_checker.h"

#include "foundation/file_hander.h"
#include "foundation/path_utils.h"
#include "read_json_file_command.h"
#include "remote_log.h"

namespace rviz_plugin {

namespace {
const char* const unknown = "Unknown";

QString VersionText(const std::pair<int, int>& version)
{
    return QString("%1.%2").arg(version.first).arg(version.second);
}
} // namespace

VersionCompatibilityChecker::VersionCompatibilityChecker() = default;

VersionCompatibilityChecker::~VersionCompatibilityChecker() = default;

void VersionCompatibilityChecker::Init(ConnectionManager* manager, const QString& remoteFile)
{
    std::string root;
    Orsa::GetOrsaPath(root);
    localPath = QString::fromStdString(Orsa::JoinPath(root, "version.json"));
    readJsonFileCommand = std::make_unique<ReadJsonFileCommand>();
    readJsonFileCommand->Init(manager, remoteFile);
    connect(readJsonFileCommand.get(), &ReadJsonFileCommand::ReadJsonFileFinished, this,
            &VersionCompatibilityChecker::OnReadJsonFileFinished);
    connect(readJsonFileCommand.get(), &ReadJsonFileCommand::ReadJsonFileFailed, this,
            &VersionCompatibilityChecker::OnReadJsonFileFailed);
}

void VersionCompatibilityChecker::Check()
{
    isChecking = true;
    readJsonFileCommand->Read();
}

std::tuple<QString, QString, QString> VersionCompatibilityChecker::Compare(const QString& remoteText) const
{
    QString remoteVersion = unknown;
    QString result = unknown;
    QString localVersion = unknown;
    VersionFile remoteFile;
    remoteFile.Parse(remoteText.toStdString());
    const std::vector<InternalInterface> remote = remoteFile.GetInternalInterfaces();
    if (remote.empty()) {
        RemoteError("Failed to read the API info from the SSH server.");
    }
    VersionFile localFile;
    const std::string localText = Orsa::FileHander::ReadFile(localPath.toStdString());
    if (localText.empty()) {
        RemoteError("Failed to read the " + localPath.toStdString());
    }
    localFile.Parse(localText);
    const std::vector<InternalInterface> local = localFile.GetInternalInterfaces();
    if (local.empty()) {
        RemoteError("Failed to read the API info from the local ORSA package.");
    }
    if (remote.empty() || local.empty()) {
        return {remoteVersion, result, localVersion};
    }
    localVersion = VersionText(local.front().version);
    for (const InternalInterface& theirs : remote) {
        if (theirs.name == local.front().name) {
            remoteVersion = VersionText(theirs.version);
            break;
        }
    }
    result = CompatibilityText(MatchInterfaces(local, remote));
    return {remoteVersion, result, localVersion};
}

void VersionCompatibilityChecker::OnReadJsonFileFinished(const QString& text)
{
    const auto [remoteVersion, result, localVersion] = Compare(text);
    isChecking = false;
    Q_EMIT CheckFinished(remoteVersion, result, localVersion);
}

void VersionCompatibilityChecker::OnReadJsonFileFailed(const QString& /*reason*/)
{
    isChecking = false;
    Q_EMIT CheckFinished(unknown, unknown, unknown);
}

} // namespace rviz_plugin

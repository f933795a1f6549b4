#include "save_thread_base.h"

#include "kora_vision_logic/camera_alias.h"
#include "topic_rename/rename_data.h"

#include <utility>

namespace rviz_plugin {

SaveThreadBase::SaveThreadBase(QString exportFolder, QString exportName)
    : folder(QString("%1/%2").arg(exportFolder, exportName)), name(std::move(exportName))
{
}

QString SaveThreadBase::ExportName(const std::string& topic, const std::string& suffix)
{
    const std::size_t found = topic.rfind(suffix);
    const std::string stripped =
        !suffix.empty() && found != std::string::npos && found + suffix.size() == topic.size() ? topic.substr(0, found)
                                                                                            : topic;
    std::string named;
    RenameData::GetCameraTopicWidthAlias(named, stripped);
    return QString::fromStdString(GetCameraFileName(named));
}

QString SaveThreadBase::FileName(const QString& fileBase, const ros::Time& stamp, const QString& extension)
{
    return QString("%1-%2-%3.%4").arg(fileBase).arg(stamp.sec).arg(stamp.nsec).arg(extension);
}

bool SaveThreadBase::MakeFolder()
{
    if (QDir().mkpath(folder) && QFileInfo(folder).isWritable()) {
        return true;
    }
    Q_EMIT SaveFailed(FolderError, folder);
    return false;
}

bool SaveThreadBase::FreePath(const ros::Time& stamp, const QString& extension, QString& path)
{
    path = folder + "/" + FileName(name, stamp, extension);
    if (QFileInfo::exists(path)) {
        Q_EMIT SaveConflicting();
        return false;
    }
    return true;
}

} // namespace rviz_plugin

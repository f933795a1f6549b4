#include "plot_global.h"

#include "plot_log.h"

#include <QDateTime>
#include <QFontMetrics>

#include <ctime>

namespace rviz_plugin {

PlotGlobal& PlotGlobal::GetInstance()
{
    static PlotGlobal instance;
    return instance;
}

QString PlotGlobal::XLabelToTimeStamp(double seconds)
{
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(seconds * 1000.0)).toString("yyyy-MM-dd hh:mm:ss");
}

QString PlotGlobal::TimeStampToTime(int seconds)
{
    const std::time_t time = seconds;
    std::tm local{};
    localtime_r(&time, &local);
    char text[32];
    std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M:%S", &local);
    return QString::fromLatin1(text);
}

QString PlotGlobal::GetTopic(const QString& path)
{
    const int slash = path.indexOf('/', 1);
    return slash < 1 ? path : path.left(slash);
}

QString PlotGlobal::GetFieldKey(const QString& path)
{
    const int slash = path.indexOf('/', 1);
    return slash < 1 ? QString() : path.mid(slash);
}

QString PlotGlobal::GetFieldName(const QString& path)
{
    QString name;
    name.reserve(path.size());
    for (int i = 0; i < path.size(); ++i) {
        if (path[i] == '.' && i >= 1) {
            while (i + 1 < path.size() && path[i + 1].isDigit()) {
                ++i;
            }
            continue;
        }
        name.append(path[i]);
    }
    return name;
}

int PlotGlobal::GetArrayIndex(const QString& path)
{
    const int point = path.indexOf('.', 1);
    if (point < 1) {
        return -1;
    }
    int end = point + 1;
    while (end < path.size() && path[end].isDigit()) {
        ++end;
    }
    bool ok = false;
    const uint index = path.mid(point + 1, end - point - 1).toUInt(&ok);
    return ok ? static_cast<int>(index) : -1;
}

QString PlotGlobal::GetArrayName(const PlotTopicMsg* node)
{
    for (const PlotTopicMsg* at = node; at != nullptr; at = at->GetParent()) {
        if (at->GetArrayProperty()) {
            return QString::fromStdString(at->GetFullName());
        }
    }
    return QString();
}

QString PlotGlobal::GetArrayNames(const QString& field, const QString& arrayName, int index)
{
    if (arrayName.isEmpty() || !field.startsWith(arrayName)) {
        return field;
    }
    return arrayName + QString(".%1").arg(index) + field.mid(arrayName.size());
}

QStringList PlotGlobal::GetArrayItems(int count)
{
    QStringList items;
    if (count <= 0) {
        PlotLog("TableData is empty.");
        return items;
    }
    for (int i = 0; i < count; ++i) {
        items.append(QString(".%1").arg(i));
    }
    return items;
}

QString PlotGlobal::GetParentArrayName(const QString& path)
{
    const int point = path.indexOf('.', 1);
    return point < 1 ? QString() : path.left(point);
}

QString PlotGlobal::GetCurveName(const QString& field, const QString& arrayName, int index)
{
    return index < 0 ? field : GetArrayNames(field, arrayName, index);
}

QString PlotGlobal::GetFieldType(const PlotTopicMsg* node)
{
    if (node == nullptr) {
        return QString();
    }
    if (node->GetParent() != nullptr && node->GetParent()->GetType() == "time") {
        return "time";
    }
    const QString type = QString::fromStdString(node->GetType());
    return node->GetArrayProperty() ? "[" + type + "[]]" : "[" + type + "]";
}

QString PlotGlobal::VerifyContent(const QString& text)
{
    const bool empty = text.isEmpty();
    Q_EMIT SignalWarningStatusChanged(empty);
    return empty ? QString("No content.") : QString();
}

QString PlotGlobal::VerifyName(const QString& text, const QStringList& names)
{
    if (names.contains(text)) {
        Q_EMIT SignalWarningStatusChanged(true);
        return "Duplicate name.";
    }
    return VerifyContent(text);
}

int PlotGlobal::GetChineseCount(const QString& text)
{
    int count = 0;
    for (const QChar c : text) {
        count += c.unicode() >= 0x4E00 && c.unicode() <= 0x9FA5 ? 1 : 0;
    }
    return count;
}

QString PlotGlobal::GetElidedText(const QString& text, const QFont& font, int width)
{
    return QFontMetrics(font).elidedText(text, Qt::ElideRight, width);
}

} // namespace rviz_plugin

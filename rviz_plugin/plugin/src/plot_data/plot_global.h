#ifndef RVIZ_PLUGIN_PLOT_GLOBAL_H
#define RVIZ_PLUGIN_PLOT_GLOBAL_H

#include "plot_types.h"

#include <QFont>
#include <QObject>
#include <QString>
#include <QStringList>

#include <ctime>

namespace rviz_plugin {

class PlotModel;

// The plot's text and time functions, and the flag that says whether another plot can be split off.
// Paths are selection paths: "/topic/field/sub", with ".N" behind an array for one element.
class PlotGlobal : public QObject {
    Q_OBJECT
public:
    static PlotGlobal& GetInstance();

    // Seconds since the epoch as "yyyy-MM-dd hh:mm:ss", local time.
    static QString XLabelToTimeStamp(double seconds);
    static QString TimeStampToTime(int seconds);

    // The text left of the first "/" after the start: "/topic" of "/topic/a/b".
    static QString GetTopic(const QString& path);
    // The path from its first "/" after the start: "/a/b" of "/topic/a/b".
    static QString GetFieldKey(const QString& path);
    // The path without its element numbers.
    static QString GetFieldName(const QString& path);
    static bool IsArray(const QString& path) { return path.indexOf('.', 1) >= 1; }
    // The element number behind the first ".", -1 when there is none.
    static int GetArrayIndex(const QString& path);
    // The selection path of the nearest array at or above the field, or an empty text.
    static QString GetArrayName(const PlotTopicMsg* node);
    // The array of a field and the path of its element: "/t/objects" and "/t/objects.3/x" for
    // "/t/objects/x" and index 3 (an array of numbers: "/t/values" and "/t/values.3").
    static QString GetArrayNames(const QString& field, const QString& arrayName, int index);
    // The element suffixes ".0" ... for an array of count elements.
    static QStringList GetArrayItems(int count);
    static QString GetParentArrayName(const QString& path);
    // The name a curve shows: the field's path with its element when it has one.
    static QString GetCurveName(const QString& field, const QString& arrayName, int index);
    // "[type]", "[type[]]" or "time".
    static QString GetFieldType(const PlotTopicMsg* node);

    // "No content." for an empty text, else an empty text; the warning signal follows.
    QString VerifyContent(const QString& text);
    // "Duplicate name." for a name in use, else as VerifyContent.
    QString VerifyName(const QString& text, const QStringList& names);
    static int GetChineseCount(const QString& text);
    // The text cut with "..." to width pixels in font.
    static QString GetElidedText(const QString& text, const QFont& font, int width);

    bool isSplitEnable = true;

Q_SIGNALS:
    void SignalWarningStatusChanged(bool warning);

private:
    PlotGlobal() = default;
};

} // namespace rviz_plugin

#endif

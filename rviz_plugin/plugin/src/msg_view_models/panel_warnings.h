#ifndef RVIZ_PLUGIN_PANEL_WARNINGS_H
#define RVIZ_PLUGIN_PANEL_WARNINGS_H

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rviz_plugin {

using Warnings = QVector<QPair<QString, QString>>;  // (name, message)

// One shown field as the status button sees it.
struct FieldStatus {
    QString nickName;
    int frequency = 0;
    QStringList values;
};

// The warnings of a panel: values over the text limit (while data flows), no data at all, and the
// errors of decoding, in this order.
Warnings CollectWarnings(const QVector<FieldStatus>& fields, const QString& topicNickName, const QString& tooLongText,
                         const Warnings& errors);

// An error of decoding for the list: an empty message clears the list; the panel's own topic is
// named by its shown name; a pair is listed once.
void AddDecodeError(Warnings& errors, const QString& topic, const QString& message, const QString& ownTopic,
                    const QString& shownName);

} // namespace rviz_plugin

#endif

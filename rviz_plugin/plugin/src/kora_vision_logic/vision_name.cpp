#include "vision_name.h"

#include <QRegularExpression>

#include <limits>

namespace rviz_plugin {

const char* const noImageTopicText = "No Image Topic";

namespace {
qulonglong FirstNumber(const QString& key)
{
    static const QRegularExpression digits("\\d+");
    const QRegularExpressionMatch match = digits.match(key);
    if (!match.hasMatch()) {
        return std::numeric_limits<qulonglong>::max();
    }
    bool ok = false;
    const qulonglong value = match.captured(0).toULongLong(&ok);
    return ok ? value : std::numeric_limits<qulonglong>::max() - 1;
}
} // namespace

QString RenumberVisionName(const QString& name, int number)
{
    const int close = name.indexOf(')');
    return QString("(%1)%2").arg(number).arg(name.mid(close + 1));
}

QString ReplaceVisionTopic(const QString& name, const QString& topic)
{
    const int close = name.indexOf(')');
    return QString("%1%2").arg(name.left(close + 1), topic.isEmpty() ? QString(noImageTopicText) : topic);
}

bool CompareLoadConfigKey(const QString& left, const QString& right)
{
    return FirstNumber(left) < FirstNumber(right);
}

} // namespace rviz_plugin

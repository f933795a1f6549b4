#include "classification_summary.h"

#include <QStringList>

namespace rviz_plugin {

namespace {
const char* const solidText = "solid";
const char* const dashText = "dash";

bool ParseNumber(const QString& field, int low, int high, int& number)
{
    bool ok = false;
    const int parsed = field.trimmed().toInt(&ok);
    if (!ok || parsed < low || parsed > high) {
        return false;
    }
    number = parsed;
    return true;
}
} // namespace

QString ClassificationSummary::Format(Kind kind) const
{
    switch (kind) {
    case Labelled:
        return QString("%1, %2").arg(value).arg(text);
    case Line:
        return QString("%1, %2, %3").arg(value).arg(isSolid ? solidText : dashText).arg(lineThickness);
    case Segmentation:
        break;
    }
    return QString("%1").arg(value);
}

bool ClassificationSummary::Parse(Kind kind, const QString& typed)
{
    const QStringList fields = typed.split(",");
    int number = 0;
    if (!ParseNumber(fields.value(0), 0, static_cast<int>(maxValue), number)) {
        return false;
    }
    ClassificationSummary parsed = *this;
    parsed.value = static_cast<unsigned>(number);
    switch (kind) {
    case Labelled:
        // The text may hold commas of its own.
        if (fields.size() < 2) {
            return false;
        }
        parsed.text = TrimClassificationText(fields.mid(1).join(",").trimmed());
        break;
    case Line: {
        const QString style = fields.value(1).trimmed();
        if (fields.size() != 3 || (style != solidText && style != dashText) ||
            !ParseNumber(fields.value(2), minLineThickness, maxLineThickness, parsed.lineThickness)) {
            return false;
        }
        parsed.isSolid = style == solidText;
        break;
    }
    case Segmentation:
        if (fields.size() != 1) {
            return false;
        }
        break;
    }
    *this = parsed;
    return true;
}

QString TrimClassificationText(const QString& text)
{
    if (text.size() <= ClassificationSummary::maxTextLength) {
        return text;
    }
    return text.left(ClassificationSummary::maxTextLength) + "...";
}

} // namespace rviz_plugin

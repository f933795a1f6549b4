#include "view_text.h"

#include <algorithm>

namespace rviz_plugin {

QString ToolTipFeedLine(const QString& text)
{
    constexpr int lineLength = 100;
    if (text.size() <= lineLength) {
        return text;
    }
    QString result;
    result.reserve(text.size() + text.size() / lineLength);
    for (int at = 0; at < text.size(); at += lineLength) {
        if (at > 0) {
            result += '\n';
        }
        result += text.midRef(at, lineLength);
    }
    return result;
}

QString ColorToolTip(const QColor& color)
{
    return QString("%1, %2, %3, %4")
        .arg(color.redF(), 0, 'g', 2)
        .arg(color.greenF(), 0, 'g', 2)
        .arg(color.blueF(), 0, 'g', 2)
        .arg(color.alphaF(), 0, 'g', 2);
}

QColor ColorFromTexts(const QString& r, const QString& g, const QString& b, const QString& a, int scale)
{
    const auto channel = [scale](const QString& text) {
        return std::clamp(static_cast<int>(text.toFloat() * static_cast<float>(scale)), 0, 255);
    };
    QColor color;
    color.setRgb(channel(r), channel(g), channel(b), channel(a));
    return color;
}

namespace {
const QString colorKeyPrefix = "[COLOR]";
}

QString ColorKey(const QString& group)
{
    return colorKeyPrefix + group;
}

QString ColorGroup(const QString& key)
{
    return key.startsWith(colorKeyPrefix) ? key.mid(colorKeyPrefix.size()) : QString();
}

QMap<QString, QVector<QString>> ComposeColorMap(const QVector<QString>& colorFields)
{
    QMap<QString, QVector<QString>> groups;
    for (const QString& field : colorFields) {
        groups[field.left(field.lastIndexOf('/'))].push_back(field);
    }
    for (auto group = groups.begin(); group != groups.end();) {
        group = group.value().size() == 4 ? std::next(group) : groups.erase(group);
    }
    return groups;
}

QString LastComponent(const QString& path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

ConstantList SortedConstants(const std::vector<std::pair<std::string, std::string>>& valueNames)
{
    ConstantList constants;
    for (const auto& [value, name] : valueNames) {
        constants.push_back({QString::fromStdString(value).toInt(), QString::fromStdString(name)});
    }
    std::stable_sort(constants.begin(), constants.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    return constants;
}

QString ConvertConstantText(const QString& text, const ConstantList& constants)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok) {
        return text;
    }
    for (const auto& [number, name] : constants) {
        if (number == value) {
            return name;
        }
    }
    return text;
}

} // namespace rviz_plugin

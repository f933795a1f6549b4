#ifndef RVIZ_PLUGIN_VIEW_TEXT_H
#define RVIZ_PLUGIN_VIEW_TEXT_H

#include <QColor>
#include <QMap>
#include <QPair>
#include <QString>
#include <QVector>

#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// Cell and value texts are cut to this many characters; longer ones raise a warning.
constexpr int maxTextLength = 3000;

using ConstantList = QVector<QPair<int, QString>>;

// A line feed after every 100 characters of a text longer than 100.
QString ToolTipFeedLine(const QString& text);

// "r, g, b, a" of a colour, each as %g with two digits.
QString ColorToolTip(const QColor& color);

// A colour from the texts of its four channels (0 to 1), each times scale and cut to an integer.
QColor ColorFromTexts(const QString& r, const QString& g, const QString& b, const QString& a, int scale = 255);

// A colour of four channels stands in the views under one key: "[COLOR]" and the channels' group path.
QString ColorKey(const QString& group);
// The group path of a colour key; an empty text for any other key.
QString ColorGroup(const QString& key);

// Groups colour fields by their text left of the last "/"; only groups of exactly four stay.
QMap<QString, QVector<QString>> ComposeColorMap(const QVector<QString>& colorFields);

// The last path component: "r" of "/objects/color/r".
QString LastComponent(const QString& path);

// The message's constants as (number, name), sorted by number.
ConstantList SortedConstants(const std::vector<std::pair<std::string, std::string>>& valueNames);

// The name of the first chosen constant whose number the text reads as; else the text.
QString ConvertConstantText(const QString& text, const ConstantList& constants);

} // namespace rviz_plugin

#endif

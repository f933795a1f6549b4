#ifndef RVIZ_PLUGIN_VISION_NAME_H
#define RVIZ_PLUGIN_VISION_NAME_H

#include <QString>

namespace rviz_plugin {

// A video item's name is "(" number ")" rest, where rest is the image topic or "No Image Topic".
extern const char* const noImageTopicText;

// "(number)" followed by everything after the first ")" of name.
QString RenumberVisionName(const QString& name, int number);

// name up to and including its first ")", followed by topic or "No Image Topic" when it is empty.
QString ReplaceVisionTopic(const QString& name, const QString& topic);

// Order of saved item keys: by the first run of digits, read as an integer ("(2)" before "(10)").
// Keys without digits come last.
bool CompareLoadConfigKey(const QString& left, const QString& right);

} // namespace rviz_plugin

#endif

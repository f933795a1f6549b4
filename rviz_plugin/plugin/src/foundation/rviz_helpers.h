#ifndef RVIZ_PLUGIN_RVIZ_HELPERS_H
#define RVIZ_PLUGIN_RVIZ_HELPERS_H

#include <QIcon>
#include <QString>
#include <QVariant>

#include <map>

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#endif

namespace rviz {
class Property;
class Tool;
class ToolManager;
} // namespace rviz

namespace rviz_plugin {

// The first tool named "Interact", or null.
rviz::Tool* GetInteractToolButton(rviz::ToolManager* manager);

// For a tool whose activation is the whole operation: once the tool manager has finished switching to
// tool, switch back to the default tool (unless the user already chose another).
void ReturnToDefaultToolLater(rviz::Tool* tool, rviz::ToolManager* manager);

// Saves property as rviz does, with value in place of the stored value: "Value" when it is valid,
// then one map per child under the child's name.
void OverwritePropertySave(const rviz::Property* property, rviz::Config& config, const QVariant& value);

// The children of a configuration map whose keys are prefix and a number, in the order of the numbers
// (so that "x_10" comes after "x_9").
std::map<int, rviz::Config> NumberedChildren(const rviz::Config& config, const QString& prefix);
// A value of a configuration map, or fallback when the key is missing or of another kind.
QString ConfigString(const rviz::Config& config, const QString& key);
int ConfigInt(const rviz::Config& config, const QString& key, int fallback = 0);
bool ConfigBool(const rviz::Config& config, const QString& key, bool fallback = false);
double ConfigDouble(const rviz::Config& config, const QString& key, double fallback = 0.0);

// rviz's icon of a status level (OK 0, Warn 1, Error 2); an empty icon for other values.
QIcon StatusLevelIcon(int level);

} // namespace rviz_plugin

#endif

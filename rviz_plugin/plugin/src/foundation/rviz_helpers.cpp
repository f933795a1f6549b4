#include "rviz_helpers.h"

#include <QTimer>

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#include <rviz/load_resource.h>
#include <rviz/properties/property.h>
#include <rviz/tool.h>
#include <rviz/tool_manager.h>
#endif

namespace rviz_plugin {

std::map<int, rviz::Config> NumberedChildren(const rviz::Config& config, const QString& prefix)
{
    std::map<int, rviz::Config> children;
    for (rviz::Config::MapIterator it = config.mapIterator(); it.isValid(); it.advance()) {
        QString key = it.currentKey();
        if (key.startsWith(prefix)) {
            children[key.remove(0, prefix.size()).toInt()] = it.currentChild();
        }
    }
    return children;
}

QString ConfigString(const rviz::Config& config, const QString& key)
{
    QString value;
    config.mapGetString(key, &value);
    return value;
}

int ConfigInt(const rviz::Config& config, const QString& key, int fallback)
{
    int value = fallback;
    config.mapGetInt(key, &value);
    return value;
}

bool ConfigBool(const rviz::Config& config, const QString& key, bool fallback)
{
    bool value = fallback;
    config.mapGetBool(key, &value);
    return value;
}

double ConfigDouble(const rviz::Config& config, const QString& key, double fallback)
{
    QVariant value;
    if (!config.mapGetValue(key, &value)) {
        return fallback;
    }
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok ? number : fallback;
}

rviz::Tool* GetInteractToolButton(rviz::ToolManager* manager)
{
    if (manager == nullptr) {
        return nullptr;
    }
    for (int i = 0; i < manager->numTools(); ++i) {
        rviz::Tool* tool = manager->getTool(i);
        if (tool != nullptr && tool->getName() == "Interact") {
            return tool;
        }
    }
    return nullptr;
}

void ReturnToDefaultToolLater(rviz::Tool* tool, rviz::ToolManager* manager)
{
    QTimer::singleShot(0, tool, [tool, manager]() {
        if (manager->getCurrentTool() == tool) {
            manager->setCurrentTool(manager->getDefaultTool());
        }
    });
}

void OverwritePropertySave(const rviz::Property* property, rviz::Config& config, const QVariant& value)
{
    if (property == nullptr) {
        return;
    }
    if (value.isValid()) {
        config.mapSetValue("Value", value);
    }
    for (int i = 0; i < property->numChildren(); ++i) {
        const rviz::Property* child = property->childAt(i);
        if (child != nullptr && child->shouldBeSaved()) {
            child->save(config.mapMakeChild(child->getName()));
        }
    }
}

QIcon StatusLevelIcon(int level)
{
    static const char* const icons[] = {"package://rviz/icons/ok.png", "package://rviz/icons/warning.png",
                                        "package://rviz/icons/error.png"};
    if (level < 0 || level > 2) {
        return QIcon();
    }
    return QIcon(rviz::loadPixmap(icons[level]));
}

} // namespace rviz_plugin

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

#include "display_status_sink.h"

#ifndef Q_MOC_RUN
#include <rviz/display.h>
#include <rviz/properties/bool_property.h>
#include <rviz/properties/int_property.h>
#endif

namespace rviz_plugin {

void DisplayStatusSink::SetStatus(Level level, const QString& name, const QString& text)
{
    display->setStatus(static_cast<rviz::StatusProperty::Level>(level), name, text);
}

void DisplayStatusSink::DeleteStatus(const QString& name)
{
    display->deleteStatus(name);
}

void InitQueueSizeProperty(rviz::IntProperty* queueSize, rviz::BoolProperty* unreliable)
{
    queueSize->setMin(5);
    queueSize->setMax(10000);
    queueSize->setInt(10);
    unreliable->hide();
}

QString DisplayNameWithTopic(const QString& name, const QString& topic)
{
    return topic.isEmpty() ? name : QString("%1(%2)").arg(name, topic);
}

} // namespace rviz_plugin

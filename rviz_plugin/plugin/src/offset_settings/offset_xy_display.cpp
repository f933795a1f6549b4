#include "offset_xy_display.h"

#include <ros/node_handle.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace rviz_plugin {

OffsetXyDisplay::OffsetXyDisplay(const QString& label, std::string parameterName, QWidget* parent)
    : QWidget(parent), parameter(std::move(parameterName))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* name = new QLabel(label, this);
    name->setObjectName("OffsetXyDisplay_label");
    value = new QLineEdit(this);
    value->setReadOnly(true);
    layout->addWidget(name);
    layout->addWidget(value, 1);
}

void OffsetXyDisplay::SetOffsetValue()
{
    double offset = 0.0;
    if (ros::NodeHandle().getParam(parameter, offset)) {
        value->setText(QString::number(offset, 'f', 6));
    }
}

QString OffsetXyDisplay::GetText() const
{
    return value->text();
}

} // namespace rviz_plugin

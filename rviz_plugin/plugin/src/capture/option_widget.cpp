#include "option_widget.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>

namespace rviz_plugin {

OptionWidget::OptionWidget(const QString& optionTopic, const QString& optionType, QWidget* parent)
    : QWidget(parent), topic(optionTopic), type(optionType)
{
    setObjectName("OptionWidget");
    box = new QCheckBox(topic, this);
    auto* typeLabel = new QLabel(type, this);
    typeLabel->setStyleSheet("color: #888888;");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(box, 1);
    layout->addWidget(typeLabel);
    connect(box, &QCheckBox::toggled, this, &OptionWidget::Toggled);
}

bool OptionWidget::IsChecked() const
{
    return box->isChecked();
}

void OptionWidget::SetChecked(bool checked)
{
    box->setChecked(checked);
}

} // namespace rviz_plugin

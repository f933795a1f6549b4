#include "center_widget.h"

#include "widgets/buttons.h"

#include <QHBoxLayout>
#include <QLabel>

namespace rviz_plugin {

CenterWidget::CenterWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("CenterWidget");
    counter = new QLabel(this);
    saveButton = new PrimaryButton("Save", this);
    saveButton->setDefault(true);
    auto* cancel = new SecondaryButton("Cancel", this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(counter);
    layout->addStretch(1);
    layout->addWidget(cancel);
    layout->addWidget(saveButton);
    connect(saveButton, &QPushButton::clicked, this, &CenterWidget::Save);
    connect(cancel, &QPushButton::clicked, this, &CenterWidget::Cancel);
    SetFrame(1);
}

void CenterWidget::SetFrame(int frame)
{
    counter->setText(QString("%1").arg(frame));
}

} // namespace rviz_plugin

#include "msg_definition_header.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVariant>

namespace rviz_plugin {

MsgDefinitionHeader::MsgDefinitionHeader(const QString& objectName, QWidget* parent)
    : QWidget(parent), checkBox(new QCheckBox(this)), nameLabel(new QLabel(this)), iconButton(new QPushButton(this))
{
    setObjectName(objectName);
    setAttribute(Qt::WA_StyledBackground);
    setFixedSize(350, 27);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 8, 0);
    nameLabel->setObjectName("nameLabel");
    iconButton->setObjectName("iconBtn");
    iconButton->setCheckable(true);
    iconButton->setIcon(QIcon(":image/search.png"));
    iconButton->setFlat(true);
    layout->addWidget(checkBox);
    layout->addWidget(nameLabel);
    layout->addStretch(1);
    layout->addWidget(iconButton);
}

void MsgDefinitionHeader::SetSearchActive(bool active)
{
    iconButton->setProperty("search", active);
    iconButton->setChecked(active);
    iconButton->style()->unpolish(iconButton);
    iconButton->style()->polish(iconButton);
}

} // namespace rviz_plugin

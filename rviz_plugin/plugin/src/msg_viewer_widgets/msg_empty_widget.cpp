#include "msg_empty_widget.h"

#include <QLabel>
#include <QVBoxLayout>

namespace rviz_plugin {

MsgEmptyWidget::MsgEmptyWidget(QWidget* parent) : QWidget(parent)
{
    setFixedSize(349, 422);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet("background-color: white;");
    auto* layout = new QVBoxLayout(this);
    layout->addStretch(1);
    auto* picture = new QLabel(this);
    picture->setPixmap(QPixmap(":image/empty.png"));
    picture->setAlignment(Qt::AlignCenter);
    layout->addWidget(picture);
    auto* title = new QLabel("No data found", this);
    title->setAlignment(Qt::AlignCenter);
    title->setStyleSheet("color:#333333; font-size:14px;");
    layout->addWidget(title);
    auto* hint = new QLabel("Enter another keyword or \nclear the search criteria", this);
    hint->setAlignment(Qt::AlignCenter);
    hint->setStyleSheet("color:#999999;");
    layout->addWidget(hint);
    layout->addStretch(1);
}

} // namespace rviz_plugin

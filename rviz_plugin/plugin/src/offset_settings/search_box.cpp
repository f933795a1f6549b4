#include "search_box.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

namespace rviz_plugin {

SearchBox::SearchBox(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    edit = new QLineEdit(this);
    edit->setObjectName("SearchBox_edit");
    edit->setPlaceholderText("Search");
    button = new QToolButton(this);
    button->setObjectName("SearchBox_button");
    button->setText("Search");
    layout->addWidget(edit, 1);
    layout->addWidget(button);
    connect(edit, &QLineEdit::returnPressed, this, [this]() { Q_EMIT Search(edit->text()); });
    connect(button, &QToolButton::clicked, this, [this]() { Q_EMIT Search(edit->text()); });
}

void SearchBox::Clear()
{
    edit->clear();
}

QString SearchBox::GetText() const
{
    return edit->text();
}

} // namespace rviz_plugin

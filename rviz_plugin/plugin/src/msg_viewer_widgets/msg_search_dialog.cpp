#include "msg_search_dialog.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

MsgSearchDialog::MsgSearchDialog(const QString& term, QWidget* parent)
    : QDialog(parent, Qt::FramelessWindowHint), edit(new QLineEdit(this))
{
    setObjectName("msgSearchDialog");
    auto* layout = new QVBoxLayout(this);
    edit->setObjectName("searchEdit");
    edit->setPlaceholderText("Please enter at least one keyword.");
    clearAction = edit->addAction(QIcon(":/image/close.png"), QLineEdit::TrailingPosition);
    connect(clearAction, &QAction::triggered, edit, &QLineEdit::clear);
    connect(edit, &QLineEdit::textChanged, this, [this](const QString& text) { clearAction->setVisible(!text.isEmpty()); });
    edit->setText(term);
    clearAction->setVisible(!term.isEmpty());
    layout->addWidget(edit);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    auto* cancel = new QPushButton("Cancel", this);
    auto* search = new QPushButton(QIcon(":image/search.png"), " Search", this);
    buttons->addWidget(cancel);
    buttons->addWidget(search);
    layout->addLayout(buttons);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(search, &QPushButton::clicked, this, &QDialog::accept);
    setFixedWidth(320);
}

QString MsgSearchDialog::GetText() const
{
    return edit->text();
}

bool MsgSearchDialog::IsClearActionShown() const
{
    return clearAction->isVisible();
}

} // namespace rviz_plugin

#include "password_line_edit.h"

#include <QKeyEvent>

PasswordLineEdit::PasswordLineEdit(QWidget* parent) : QLineEdit(parent)
{
    setEchoMode(QLineEdit::Password);
    setDragEnabled(false);
}

void PasswordLineEdit::Wipe()
{
    setText(QString(text().size(), QChar('\0')));
    clear();
}

void PasswordLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut)) {
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void PasswordLineEdit::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();  // no menu: nothing to copy
}

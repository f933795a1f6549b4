#ifndef WIDGETS_PASSWORD_LINE_EDIT_H
#define WIDGETS_PASSWORD_LINE_EDIT_H

#include <QLineEdit>

// A password box: the text is never shown, copied or dragged out, and Wipe() overwrites it before
// clearing (as far as Qt's own copies allow).
class PasswordLineEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit PasswordLineEdit(QWidget* parent = nullptr);
    void Wipe();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
};

#endif

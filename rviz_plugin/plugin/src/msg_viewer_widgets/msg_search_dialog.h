#ifndef RVIZ_PLUGIN_MSG_SEARCH_DIALOG_H
#define RVIZ_PLUGIN_MSG_SEARCH_DIALOG_H

#include <QDialog>

class QAction;
class QLineEdit;

namespace rviz_plugin {

// Asks for a search term.
class MsgSearchDialog : public QDialog {
    Q_OBJECT
public:
    explicit MsgSearchDialog(const QString& term, QWidget* parent = nullptr);

    QString GetText() const;
    QLineEdit* GetEdit() const { return edit; }
    bool IsClearActionShown() const;

private:
    QLineEdit* edit;
    QAction* clearAction;
};

} // namespace rviz_plugin

#endif

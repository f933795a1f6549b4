#ifndef RVIZ_PLUGIN_MSG_DEFINITION_HEADER_H
#define RVIZ_PLUGIN_MSG_DEFINITION_HEADER_H

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;

namespace rviz_plugin {

// The head of one side of the selection dialog: a check box for all, the title with counts, and the
// search button.
class MsgDefinitionHeader : public QWidget {
    Q_OBJECT
public:
    explicit MsgDefinitionHeader(const QString& objectName, QWidget* parent = nullptr);

    QCheckBox* GetCheckBox() const { return checkBox; }
    QLabel* GetLabel() const { return nameLabel; }
    QPushButton* GetIconButton() const { return iconButton; }
    void SetSearchActive(bool active);

private:
    QCheckBox* checkBox;
    QLabel* nameLabel;
    QPushButton* iconButton;
};

} // namespace rviz_plugin

#endif

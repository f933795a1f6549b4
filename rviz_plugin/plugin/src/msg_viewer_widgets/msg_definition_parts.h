#ifndef RVIZ_PLUGIN_MSG_DEFINITION_PARTS_H
#define RVIZ_PLUGIN_MSG_DEFINITION_PARTS_H

#include <QDialog>
#include <QItemDelegate>
#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
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

// What a side of the dialog shows when a search finds nothing.
class MsgEmptyWidget : public QWidget {
    Q_OBJECT
public:
    explicit MsgEmptyWidget(QWidget* parent = nullptr);
};

// Paints a row of a topic or field tree: its check box (greyed when disabled), name and type.
class MsgDefinitionDelegate : public QItemDelegate {
    Q_OBJECT
public:
    MsgDefinitionDelegate(bool isTopicTree, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

protected:
    void drawCheck(QPainter* painter, const QStyleOptionViewItem& option, const QRect& rect,
                   Qt::CheckState state) const override;

private:
    QRect CheckRect(const QStyleOptionViewItem& option) const;

    bool isTopicTree;
};

} // namespace rviz_plugin

#endif

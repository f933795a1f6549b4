#ifndef RVIZ_PLUGIN_MSG_DEFINITION_DELEGATE_H
#define RVIZ_PLUGIN_MSG_DEFINITION_DELEGATE_H

#include <QItemDelegate>

namespace rviz_plugin {

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

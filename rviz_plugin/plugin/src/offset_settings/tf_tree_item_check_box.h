#ifndef RVIZ_PLUGIN_TF_TREE_ITEM_CHECK_BOX_H
#define RVIZ_PLUGIN_TF_TREE_ITEM_CHECK_BOX_H

#include <QCheckBox>

namespace rviz_plugin {

// The tick of one frame in the transform tree; it knows its node in the tree's model.
class TfTreeItemCheckBox : public QCheckBox {
    Q_OBJECT
public:
    TfTreeItemCheckBox(const QString& frame, int node, QWidget* parent = nullptr);
    int GetNode() const { return node; }

private:
    int node;
};

} // namespace rviz_plugin

#endif

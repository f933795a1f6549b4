#include "tf_tree_item_check_box.h"

namespace rviz_plugin {

TfTreeItemCheckBox::TfTreeItemCheckBox(const QString& frame, int treeNode, QWidget* parent)
    : QCheckBox(frame, parent), node(treeNode)
{
    setObjectName("TfTreeItemCheckBox");
    setTristate(true);
}

} // namespace rviz_plugin

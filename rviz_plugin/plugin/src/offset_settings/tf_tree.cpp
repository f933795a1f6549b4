#include "tf_tree.h"

#include "tf_tree_item_check_box.h"

namespace rviz_plugin {

TfTree::TfTree(QWidget* parent) : QTreeWidget(parent)
{
    setObjectName("TfTree");
    setHeaderHidden(true);
}

void TfTree::Refresh(const std::vector<std::pair<std::string, std::string>>& links,
                     const std::vector<std::string>& fileFrames)
{
    tree.Build(links, fileFrames);
    BuildTfTree();
}

void TfTree::BuildTfTree()
{
    clear();
    boxes.clear();
    std::vector<QTreeWidgetItem*> items;
    for (std::size_t index = 0; index < tree.GetNodes().size(); ++index) {
        const FrameTree::Node& node = tree.GetNodes()[index];
        auto* item = node.parent < 0 ? new QTreeWidgetItem(this)
                                     : new QTreeWidgetItem(items[static_cast<std::size_t>(node.parent)]);
        items.push_back(item);
        auto* box = new TfTreeItemCheckBox(QString::fromStdString(node.name), static_cast<int>(index));
        setItemWidget(item, 0, box);
        boxes.push_back(box);
        connect(box, &QCheckBox::clicked, this, [this, box]() {
            // A click on a partly checked box ticks it whole.
            tree.SetChecked(box->GetNode(),
                            tree.GetNodes()[static_cast<std::size_t>(box->GetNode())].state != FrameTree::State::Checked);
            SetTfTreeNodeStatus();
        });
    }
    SetTfTreeNodeStatus();
    expandAll();
}

void TfTree::SetTfTreeNodeStatus()
{
    for (TfTreeItemCheckBox* box : boxes) {
        const FrameTree::State state = tree.GetNodes()[static_cast<std::size_t>(box->GetNode())].state;
        box->setCheckState(state == FrameTree::State::Checked
                               ? Qt::Checked
                               : (state == FrameTree::State::Partial ? Qt::PartiallyChecked : Qt::Unchecked));
    }
}

} // namespace rviz_plugin

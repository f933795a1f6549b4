#ifndef RVIZ_PLUGIN_TF_TREE_H
#define RVIZ_PLUGIN_TF_TREE_H

#include "offset_settings_logic/frame_tree.h"

#include <QTreeWidget>

namespace rviz_plugin {

class TfTreeItemCheckBox;

// The transform tree under "root", a tick per frame; ticks run down to children and up to parents.
class TfTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit TfTree(QWidget* parent = nullptr);

    // links: (child frame, parent frame) as the transforms know them.
    void Refresh(const std::vector<std::pair<std::string, std::string>>& links,
                 const std::vector<std::string>& fileFrames);
    std::vector<std::string> GetTfTreeCheckStatus() const { return tree.GetChecked(); }
    bool IsTfModified() const { return tree.IsModified(); }

private:
    void BuildTfTree();
    // Shows the model's ticks on every box.
    void SetTfTreeNodeStatus();

    FrameTree tree;
    std::vector<TfTreeItemCheckBox*> boxes;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_FRAME_TREE_H
#define RVIZ_PLUGIN_FRAME_TREE_H

#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// The transform tree of the offset settings under a node "root": every frame under its parent, frames
// without one under the root, and the file's frames that the transforms do not know under the root
// too (so that saving keeps them). Ticking a node ticks its subtree; a node whose children agree takes
// their state, one with mixed children is partly checked.
class FrameTree {
public:
    enum class State { Unchecked, Partial, Checked };
    struct Node {
        std::string name;
        int parent = -1;
        std::vector<int> children;
        State state = State::Unchecked;
    };
    static constexpr const char* rootName = "root";

    // links: (child frame, parent frame; empty when it has none). Names without leading slashes.
    void Build(const std::vector<std::pair<std::string, std::string>>& links, const std::vector<std::string>& fileFrames);
    void SetChecked(int node, bool checked);
    // Every ticked frame (the root excluded), in tree order.
    std::vector<std::string> GetChecked() const;
    bool IsModified() const;
    const std::vector<Node>& GetNodes() const { return nodes; }
    int Find(const std::string& name) const;

private:
    int Add(const std::string& name);
    void SetSubtree(int node, State state);
    void UpdateParents(int node);
    void Collect(int node, std::vector<std::string>& names) const;

    std::vector<Node> nodes;
    std::vector<std::string> fileNames;
};

} // namespace rviz_plugin

#endif

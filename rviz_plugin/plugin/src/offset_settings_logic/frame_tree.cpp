#include "frame_tree.h"

#include "topic_selection.h"

#include <algorithm>
#include <map>
#include <set>

namespace rviz_plugin {

int FrameTree::Find(const std::string& name) const
{
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        if (nodes[index].name == name) {
            return static_cast<int>(index);
        }
    }
    return -1;
}

int FrameTree::Add(const std::string& name)
{
    Node node;
    node.name = name;
    nodes.push_back(std::move(node));
    return static_cast<int>(nodes.size() - 1);
}

void FrameTree::Build(const std::vector<std::pair<std::string, std::string>>& links,
                      const std::vector<std::string>& fileFrames)
{
    nodes.clear();
    fileNames.clear();
    Add(rootName);
    std::map<std::string, std::string> parents;
    for (const auto& [child, parent] : links) {
        const std::string name = WithoutLeadingSlashes(child);
        if (!name.empty()) {
            parents[name] = WithoutLeadingSlashes(parent);
        }
    }
    for (const auto& [child, parent] : parents) {
        if (!parent.empty() && parents.count(parent) == 0) {
            parents[parent] = "";
        }
    }
    for (const std::string& frame : fileFrames) {
        const std::string name = WithoutLeadingSlashes(frame);
        fileNames.push_back(name);
        if (!name.empty() && parents.count(name) == 0) {
            parents[name] = "";
        }
    }
    // Parents before children; a loop in the links is cut at the root.
    std::map<std::string, int> index;
    std::set<std::string> placing;
    const auto place = [&](const std::string& name, auto& self) -> int {
        if (const auto found = index.find(name); found != index.end()) {
            return found->second;
        }
        const std::string& parent = parents[name];
        int parentIndex = 0;
        if (!parent.empty() && placing.insert(name).second) {
            parentIndex = self(parent, self);
            if (const auto placed = index.find(name); placed != index.end()) {
                return placed->second;  // placed on the way round a loop
            }
        }
        const int node = Add(name);
        nodes[static_cast<std::size_t>(node)].parent = parentIndex;
        nodes[static_cast<std::size_t>(parentIndex)].children.push_back(node);
        index[name] = node;
        return node;
    };
    for (const auto& entry : parents) {
        place(entry.first, place);
    }
    // The file's frames are ticked as they are (their children keep their own ticks); their ancestors
    // follow.
    for (const std::string& name : fileNames) {
        const int node = Find(name);
        if (node > 0) {
            nodes[static_cast<std::size_t>(node)].state = State::Checked;
        }
    }
    for (const std::string& name : fileNames) {
        const int node = Find(name);
        if (node > 0) {
            UpdateParents(node);
        }
    }
}

void FrameTree::SetChecked(int node, bool checked)
{
    if (node < 0 || node >= static_cast<int>(nodes.size())) {
        return;
    }
    SetSubtree(node, checked ? State::Checked : State::Unchecked);
    UpdateParents(node);
}

void FrameTree::SetSubtree(int node, State state)
{
    nodes[static_cast<std::size_t>(node)].state = state;
    for (int child : nodes[static_cast<std::size_t>(node)].children) {
        SetSubtree(child, state);
    }
}

void FrameTree::UpdateParents(int node)
{
    for (int parent = nodes[static_cast<std::size_t>(node)].parent; parent >= 0;
         parent = nodes[static_cast<std::size_t>(parent)].parent) {
        Node& current = nodes[static_cast<std::size_t>(parent)];
        const State first = nodes[static_cast<std::size_t>(current.children.front())].state;
        const bool agree = std::all_of(current.children.begin(), current.children.end(), [&](int child) {
            return nodes[static_cast<std::size_t>(child)].state == first;
        });
        current.state = agree ? first : State::Partial;
    }
}

std::vector<std::string> FrameTree::GetChecked() const
{
    std::vector<std::string> names;
    Collect(0, names);
    return names;
}

void FrameTree::Collect(int node, std::vector<std::string>& names) const
{
    for (int child : nodes[static_cast<std::size_t>(node)].children) {
        if (nodes[static_cast<std::size_t>(child)].state == State::Checked) {
            names.push_back(nodes[static_cast<std::size_t>(child)].name);
        }
        Collect(child, names);
    }
}

bool FrameTree::IsModified() const
{
    const std::vector<std::string> checked = GetChecked();
    return std::set<std::string>(checked.begin(), checked.end()) !=
           std::set<std::string>(fileNames.begin(), fileNames.end());
}

} // namespace rviz_plugin

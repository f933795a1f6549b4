#include "topic_selection.h"

#include <algorithm>
#include <set>

namespace rviz_plugin {

std::string WithoutLeadingSlashes(const std::string& name)
{
    const std::size_t first = name.find_first_not_of('/');
    return first == std::string::npos ? std::string() : name.substr(first);
}

const std::vector<std::string>& TopicSelection::OffsetTypes()
{
    static const std::vector<std::string> types{
        "visualization_msgs/Marker",    "visualization_msgs/MarkerArray", "nav_msgs/GridCells",
        "nav_msgs/OccupancyGrid",       "nav_msgs/Path",                  "geometry_msgs/PointStamped",
        "geometry_msgs/PolygonStamped", "geometry_msgs/PoseStamped",      "custom/ObjectArray",
        "custom/RadarDetectArray",      "custom/RadarTrackArray"};
    return types;
}

void TopicSelection::Build(const std::vector<std::pair<std::string, std::string>>& liveTopics,
                           const std::vector<std::string>& fileTopics)
{
    entries.clear();
    fileNames.clear();
    for (const std::string& name : fileTopics) {
        fileNames.push_back(WithoutLeadingSlashes(name));
    }
    const auto inFile = [this](const std::string& name) {
        return std::find(fileNames.begin(), fileNames.end(), WithoutLeadingSlashes(name)) != fileNames.end();
    };
    std::set<std::string> listed;
    const auto& types = OffsetTypes();
    for (const auto& [name, type] : liveTopics) {
        const std::string bare = WithoutLeadingSlashes(name);
        if (bare == "tf" || !listed.insert(bare).second) {
            continue;
        }
        Entry entry{name, type};
        entry.enabled = std::find(types.begin(), types.end(), type) != types.end();
        entry.checked = entry.enabled && inFile(name);
        entries.push_back(std::move(entry));
    }
    for (const std::string& name : fileNames) {
        if (!name.empty() && name != "tf" && listed.insert(name).second) {
            entries.push_back(Entry{name, unknownType, true, true, true});
        }
    }
    ApplyFilters();
}

void TopicSelection::TypeFilter(const std::string& type)
{
    typeFilter = type;
    ApplyFilters();
}

void TopicSelection::SearchFilter(const std::string& text)
{
    searchText = text;
    ApplyFilters();
}

void TopicSelection::ApplyFilters()
{
    for (Entry& entry : entries) {
        entry.visible = (typeFilter == allTypes || entry.type == typeFilter) &&
                        entry.name.find(searchText) != std::string::npos;
    }
}

void TopicSelection::SetChecked(std::size_t index, bool checked)
{
    if (index < entries.size() && entries[index].enabled) {
        entries[index].checked = checked;
    }
}

void TopicSelection::SetShownChecked(bool checked)
{
    for (Entry& entry : entries) {
        if (entry.visible && entry.enabled) {
            entry.checked = checked;
        }
    }
}

TopicSelection::HeaderState TopicSelection::GetHeaderState() const
{
    std::size_t shown = 0;
    std::size_t ticked = 0;
    for (const Entry& entry : entries) {
        if (entry.visible && entry.enabled) {
            ++shown;
            ticked += entry.checked ? 1 : 0;
        }
    }
    if (ticked == 0) {
        return HeaderState::Unchecked;
    }
    return ticked == shown ? HeaderState::Checked : HeaderState::Partial;
}

std::vector<std::string> TopicSelection::GetChecked() const
{
    std::vector<std::string> names;
    for (const Entry& entry : entries) {
        if (entry.checked) {
            names.push_back(WithoutLeadingSlashes(entry.name));
        }
    }
    return names;
}

bool TopicSelection::IsModified() const
{
    // A file topic whose live type cannot be shifted can never be ticked: it does not count.
    std::set<std::string> expected(fileNames.begin(), fileNames.end());
    for (const Entry& entry : entries) {
        if (!entry.enabled) {
            expected.erase(WithoutLeadingSlashes(entry.name));
        }
    }
    const std::vector<std::string> checked = GetChecked();
    return std::set<std::string>(checked.begin(), checked.end()) != expected;
}

std::vector<std::string> TopicSelection::GetTypes() const
{
    std::vector<std::string> types{allTypes};
    for (const Entry& entry : entries) {
        if (std::find(types.begin(), types.end(), entry.type) == types.end()) {
            types.push_back(entry.type);
        }
    }
    return types;
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_TOPIC_SELECTION_H
#define RVIZ_PLUGIN_TOPIC_SELECTION_H

#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// The topics of the offset settings: the live ones (name and type) and those of the settings file. A
// file topic nobody publishes stays with the type "unknown"; "tf" is not listed; a topic whose type is
// not 3D data in the map frame is shown disabled and unticked. Names are compared without their
// leading slashes.
class TopicSelection {
public:
    enum class HeaderState { Unchecked, Partial, Checked };
    struct Entry {
        std::string name;  // as the master gives it (or the file, for an unknown one)
        std::string type;
        bool checked = false;
        bool enabled = true;
        bool visible = true;
    };
    static constexpr const char* unknownType = "unknown";
    static constexpr const char* allTypes = "All";
    // The types that may be ticked, in the order of the type box.
    static const std::vector<std::string>& OffsetTypes();

    void Build(const std::vector<std::pair<std::string, std::string>>& liveTopics,
               const std::vector<std::string>& fileTopics);
    // Shows only the topics of type ("All": every topic), then applies the search text again.
    void TypeFilter(const std::string& type);
    // Of the topics the type filter shows, those whose name contains text.
    void SearchFilter(const std::string& text);
    void SetChecked(std::size_t index, bool checked);
    // The header box: ticks or unticks every shown, enabled topic.
    void SetShownChecked(bool checked);
    HeaderState GetHeaderState() const;
    // Ticked names without leading slashes, in list order.
    std::vector<std::string> GetChecked() const;
    // Whether the ticks differ from the file's list.
    bool IsModified() const;
    // "All" then the types present, in list order.
    std::vector<std::string> GetTypes() const;
    const std::vector<Entry>& GetEntries() const { return entries; }

private:
    void ApplyFilters();

    std::vector<Entry> entries;
    std::vector<std::string> fileNames;
    std::string typeFilter = allTypes;
    std::string searchText;
};

// name without its leading slashes.
std::string WithoutLeadingSlashes(const std::string& name);

} // namespace rviz_plugin

#endif

#include "plot_record.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace rviz_plugin {

PlotRecord::PlotRecord() : MsgRecord(std::make_unique<PlotSubscriber>()) {}

void PlotRecord::UpdateSelectionDataFromDefinition(int line, const std::map<std::string, FieldTypePairs>& selection)
{
    lineSelections[line].fields = selection;
}

void PlotRecord::UpdateSelection(int line, const std::string& xKey, const std::string& yKey)
{
    std::set<std::string>& keys = lineSelections[line].keys;
    keys.clear();
    for (const std::string& key : {xKey, yKey}) {
        if (!key.empty()) {
            keys.insert(key);
        }
    }
    ApplySelection();
}

void PlotRecord::RemoveLine(int line)
{
    lineSelections.erase(line);
    if (lineSelections.empty()) {
        ShutdownSubscriber();
        return;
    }
    ApplySelection();
}

int PlotRecord::GetArraySize(const std::string& topic, const std::string& arrayName)
{
    const auto& msgs = GetSubscriber().GetDeserializedMsg();
    const auto found = msgs.find(topic);
    if (found == msgs.end() || found->second == nullptr) {
        return 0;
    }
    const std::string prefix = arrayName + ".";
    int count = 0;
    const auto countPath = [&](const std::string& path) {
        if (path.compare(0, prefix.size(), prefix) == 0) {
            count = std::max(count, std::atoi(path.c_str() + prefix.size()) + 1);
        }
    };
    for (const auto& [path, value] : found->second->flatValues) {
        countPath(path);
    }
    std::string path;
    for (const auto& [leaf, text] : found->second->flatMessage.name) {
        leaf.toStr(path);
        countPath(path);
    }
    return count;
}

void PlotRecord::Resume()
{
    if (HasLines()) {
        ApplySelection();
    }
}

void PlotRecord::ApplySelection()
{
    std::map<std::string, FieldTypePairs> all;
    std::set<std::string> keys;
    for (const auto& [line, selection] : lineSelections) {
        for (const auto& [topic, pairs] : selection.fields) {
            FieldTypePairs& merged = all[topic];
            for (const auto& pair : pairs) {
                if (std::find(merged.begin(), merged.end(), pair) == merged.end()) {
                    merged.push_back(pair);
                }
            }
        }
        keys.insert(selection.keys.begin(), selection.keys.end());
    }
    MsgRecord::UpdateSelectionDataFromDefinition(false, std::string(), all);
    UpdateSelectTopicsFields();
    UpdateDataHandlerMsg();
    PlotSubscriber& subscriber = GetPlotSubscriber();
    subscriber.GetPlotHandler().UpdateCaptureArray(keys);
    subscriber.GetPlotHandler().InitCountDataFrame();
    subscriber.GetPlotHandler().SetLoadedTopicsFields(GetTopicFields());
    subscriber.UpdateMsgDisplaySubscriber(GetTopicFields());
}

} // namespace rviz_plugin

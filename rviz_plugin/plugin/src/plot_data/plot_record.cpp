#include "plot_record.h"

#include <algorithm>
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

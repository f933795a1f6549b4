#ifndef RVIZ_PLUGIN_PLOT_RECORD_H
#define RVIZ_PLUGIN_PLOT_RECORD_H

#include "plot_subscriber.h"
#include "plot_types.h"

#include "msg_viewer_panel/msg_record.h"

#include <QObject>

#include <map>
#include <set>
#include <string>

namespace rviz_plugin {

// The selection of the lines of one plot and the subscription that feeds them. The lines share the
// record: each line's fields are kept under its curve index and the record subscribes to all of them.
class PlotRecord : public QObject, public MsgRecord {
    Q_OBJECT
public:
    PlotRecord();

    // The fields of one line: topic -> (field, type) pairs.
    void UpdateSelectionDataFromDefinition(int line, const std::map<std::string, FieldTypePairs>& selection);
    // Subscribes to the fields of every line; xKey and yKey are the line's fields with their element.
    void UpdateSelection(int line, const std::string& xKey, const std::string& yKey);
    // Forgets a line; with no line left the subscription ends.
    void RemoveLine(int line);
    // Subscribes again to the lines' topics after ShutdownSubscriber (a plot shown again).
    void Resume();
    bool HasLines() const { return !lineSelections.empty(); }
    // The element count of an array in the topic's last message (0 before one came).
    int GetArraySize(const std::string& topic, const std::string& arrayName);

    PlotSubscriber& GetPlotSubscriber() { return static_cast<PlotSubscriber&>(GetSubscriber()); }
    const PlotDataHandler& GetHandler() { return GetPlotSubscriber().GetPlotHandler(); }

private:
    struct LineSelection {
        std::map<std::string, FieldTypePairs> fields;
        std::set<std::string> keys;
    };
    void ApplySelection();

    std::map<int, LineSelection> lineSelections;
};

} // namespace rviz_plugin

#endif

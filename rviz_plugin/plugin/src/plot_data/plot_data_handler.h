#ifndef RVIZ_PLUGIN_PLOT_DATA_HANDLER_H
#define RVIZ_PLUGIN_PLOT_DATA_HANDLER_H

#include "plot_data.h"

#include "msg_viewer_panel/msg_data_handler.h"

#include <map>
#include <set>
#include <string>
#include <unordered_set>

namespace rviz_plugin {

// The viewer's handler with what a curve needs on top: the texts of array elements and stamps
// ("capture keys") and the time of the last cycle in which every selected topic sent a message.
// Numbers are printed so that they read back as the same double.
class PlotDataHandler : public MsgDataHandler {
public:
    PlotDataHandler();

    void DisplaySelectedData(const DeserializedMsgs& msgs, const std::string& topic, int maxRows) override;
    bool HasProcessedAllSelectedTopic() const;
    // Seconds since the epoch at the end of the last complete cycle.
    double GetProcessedTime() const { return processedTime; }
    // The element paths ("/topic/array.3/field") caught for the curves; any other key of the set is
    // left to the key-value data.
    void UpdateCaptureArray(const std::set<std::string>& keys);
    const PlotData& GetPlotData() const { return *plotData; }

protected:
    void CaptureValue(const std::string& path, double value) override;
    void CaptureText(const std::string& path, const std::string& text) override;
    std::string FormatValue(double value) const override;

private:
    // Takes ownership.
    explicit PlotDataHandler(PlotData* data);

    PlotData* plotData;
    std::map<std::string, std::unordered_set<std::string>> selectedArrays;
    std::map<std::string, bool> processedTopics;
    double processedTime = 0.0;
    bool isCaptureOnly = false;
    // Of the message being stored.
    std::string stampPath;
    const std::unordered_set<std::string>* captureKeys = nullptr;
    // Whether the topic's capture keys name the seconds or nanoseconds of a time.
    std::map<std::string, bool> capturesTimeParts;
    bool timeParts = false;
};

} // namespace rviz_plugin

#endif

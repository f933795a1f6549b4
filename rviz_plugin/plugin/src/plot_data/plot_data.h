#ifndef RVIZ_PLUGIN_PLOT_DATA_H
#define RVIZ_PLUGIN_PLOT_DATA_H

#include "msg_viewer_panel/msg_data.h"

#include <string>
#include <unordered_map>

namespace rviz_plugin {

// The viewer's data, and the texts of captured fields (array elements and stamps) by their paths.
class PlotData : public MsgData {
public:
    void InsertArrayData(const std::string& key, const std::string& text) { arrayData[key] = text; }
    // An empty text for a key never captured, or cleared since.
    const std::string& GetArrayData(const std::string& key) const;
    void ClearArrayData(const std::string& key);
    const std::map<std::string, Pairs>& GetKeyValueData() const { return GeKeyValueData(); }

private:
    std::unordered_map<std::string, std::string> arrayData;
};

} // namespace rviz_plugin

#endif

#include "plot_data.h"

namespace rviz_plugin {

const std::string& PlotData::GetArrayData(const std::string& key) const
{
    static const std::string empty;
    const auto found = arrayData.find(key);
    return found == arrayData.end() ? empty : found->second;
}

void PlotData::ClearArrayData(const std::string& key)
{
    const auto found = arrayData.find(key);
    if (found != arrayData.end()) {
        found->second.clear();
    }
}

} // namespace rviz_plugin

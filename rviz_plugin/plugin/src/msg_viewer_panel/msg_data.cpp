#include "msg_data.h"

#include <algorithm>
#include <climits>

namespace rviz_plugin {

int MsgData::GetFrequency(const std::string& topic) const
{
    const auto found = frequency.find(topic);
    return found == frequency.end() ? 0 : found->second;
}

void MsgData::UpdateDataFrequency()
{
    for (auto& [topic, counts] : dataFrame) {
        frequency[topic] = counts.second - counts.first;
        counts.first = counts.second;
    }
}

void MsgData::InsertTableTitle(const std::string& title)
{
    displayTitle.push_back(title);
}

bool MsgData::HasTableTitle(const std::string& title) const
{
    return std::find(displayTitle.begin(), displayTitle.end(), title) != displayTitle.end();
}

void MsgData::InsertKeyValueData(const std::string& topic, const std::string& field, const std::string& value)
{
    keyValueData[topic].emplace_back(field, value);
}

void MsgData::CountDataFrame(const std::string& topic)
{
    auto& counts = dataFrame[topic];
    ++counts.second;
    if (counts.second >= INT_MAX) {
        counts = {0, 0};
    }
}

void MsgData::ClearDataFrame()
{
    dataFrame.clear();
    frequency.clear();
}

void MsgData::InsertConstData(const std::string& topic, const std::string& name, const std::string& value)
{
    constData[topic].emplace_back(value, name);
}

void MsgData::SortTableData(const std::vector<std::string>& titles)
{
    std::vector<std::string> sortedTitles;
    std::vector<std::size_t> columns;
    for (const std::string& title : titles) {
        const auto found = std::find(displayTitle.begin(), displayTitle.end(), title);
        if (found != displayTitle.end()) {
            sortedTitles.push_back(title);
            columns.push_back(static_cast<std::size_t>(found - displayTitle.begin()));
        }
    }
    for (Row& row : tableData) {
        Row sorted;
        for (std::size_t column : columns) {
            sorted.push_back(column < row.size() ? row[column] : std::string());
        }
        row = std::move(sorted);
    }
    displayTitle = std::move(sortedTitles);
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_MSG_DATA_H
#define RVIZ_PLUGIN_MSG_DATA_H

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// What the viewer's views read: table, key-value pairs, constants and per-topic frequency.
class MsgData {
public:
    using Row = std::vector<std::string>;
    using Pairs = std::vector<std::pair<std::string, std::string>>;

    MsgData() = default;
    // Owned through this type by the handler, whatever the owner's kind of data.
    virtual ~MsgData() = default;
    MsgData(const MsgData&) = default;
    MsgData& operator=(const MsgData&) = default;

    int GetFrequency(const std::string& topic) const;
    void UpdateDataFrequency();

    const std::vector<std::string>& GetDisplayTitle() const { return displayTitle; }
    void InsertTableTitle(const std::string& title);
    void ClearTableTitle() { displayTitle.clear(); }
    bool HasTableTitle(const std::string& title) const;

    const std::map<std::string, Pairs>& GeKeyValueData() const { return keyValueData; }
    void InsertKeyValueData(const std::string& topic, const std::string& field, const std::string& value);
    void ClearKeyValueData(const std::string& topic) { keyValueData[topic].clear(); }

    const std::vector<Row>& GetTableData() const { return tableData; }
    void InsertRowData(const Row& row) { tableData.push_back(row); }
    void ClearTableData() { tableData.clear(); }

    const std::map<std::string, std::pair<int, int>>& GetDataFrame() const { return dataFrame; }
    void InitDataFrame(const std::string& topic, int value) { dataFrame[topic] = {value, value}; }
    void CountDataFrame(const std::string& topic);
    void ClearDataFrame();

    const std::map<std::string, Pairs>& GetData() const { return constData; }
    void InsertConstData(const std::string& topic, const std::string& name, const std::string& value);
    void ClearConstData(const std::string& topic) { constData[topic].clear(); }

    // Puts the columns in the order of fields (by their titles); columns without a field go.
    void SortTableData(const std::vector<std::string>& titles);

private:
    std::map<std::string, int> frequency;
    std::vector<std::string> displayTitle;
    std::map<std::string, Pairs> keyValueData;
    std::vector<Row> tableData;
    std::map<std::string, std::pair<int, int>> dataFrame;
    std::map<std::string, Pairs> constData;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_MSG_DATA_HANDLER_H
#define RVIZ_PLUGIN_MSG_DATA_HANDLER_H

#include "msg_data.h"
#include "msg_parsers.h"

#include <QObject>

#include <map>
#include <string>
#include <unordered_set>
#include <vector>

namespace rviz_plugin {

using DeserializedMsgs = std::map<std::string, const MsgParsers::DeserializedMsg*>;

// Turns each decoded message of a panel's topics into the rows or key-value pairs of MsgData.
class MsgDataHandler : public QObject {
    Q_OBJECT
public:
    using Rows = std::map<int, std::vector<std::pair<std::string, std::string>>>;

    void DisplaySelectedData(const DeserializedMsgs& msgs, const std::string& topic, int maxRows);
    void CountDataFrame(const std::string& topic);
    void InitCountDataFrame();
    void UpdateDataFrame() { data.UpdateDataFrequency(); }
    void SetLoadedTopicsFields(const std::map<std::string, std::vector<std::string>>& fields) { loadedFields = fields; }
    void SetSelectedFields(const std::map<std::string, std::vector<std::string>>& fields);
    void SetFieldTypes(const std::map<std::string, std::map<std::string, std::string>>& types);
    void SetArrayMode(bool arrayMode, const std::string& arrayName);

    // Path helpers of the views.
    std::string ParseName(const std::string& path) const;
    static std::string ParsePropertiesName(const std::string& path);
    // Cuts the first ".index" out of path and keeps the index in arrayIndex.
    std::string ParseArrayProperties(const std::string& path);

    const MsgData& GetData() const { return data; }
    int GetRowCount() const { return rowCount; }
    int GetArrayIndex() const { return arrayIndex; }

private:
    void StorageMsg(const DeserializedMsgs& msgs);
    void StorageMsgString(const MsgParsers::DeserializedMsg& msg);
    void StorageMsgValue(const MsgParsers::DeserializedMsg& msg);
    void StorageBlobData(const MsgParsers::DeserializedMsg& msg);
    void StorageMsgConstant(const MsgParsers::DeserializedMsg& msg);
    bool IsStampProperties(const std::string& path, double value);
    // The storing filter: false when the field at path is not stored.
    bool Keep(const std::string& path, bool& hasIndex, bool& hasArray) const;
    void StoreText(const std::string& path, const std::string& text, Rows& rows);
    void ConstructTableData();
    void ConstructTableNotArrayData(MsgData::Row& row);
    void ConstructTableArrayData(MsgData::Row& row, const Rows& rows, int index);
    void ConstructKeyValueData();
    bool IsSelected(const std::string& field) const;
    // Whether a value at path can reach a view: its path without the array index is a selected field,
    // or a time whose seconds or nanoseconds are. Nothing else is printed to text.
    bool IsWanted(const std::string& path);
    void UpdateWantedPaths();

    bool isArrayMode = false;
    std::string selectedArray;
    int arrayIndex = 0;
    int rowCount = 0;
    int maxRows = 100;
    std::string topic;
    MsgData data;
    std::map<std::string, std::vector<std::string>> selectedFields;
    std::map<std::string, std::map<std::string, std::string>> fieldTypes;
    Rows arrayStringRows;
    Rows arrayValueRows;
    std::map<std::string, std::string> scalarValues;
    std::map<std::string, std::vector<std::string>> loadedFields;
    std::map<std::string, std::unordered_set<std::string>> wantedPaths;
    std::string selectionPath;  // reused by IsWanted
};

} // namespace rviz_plugin

#endif

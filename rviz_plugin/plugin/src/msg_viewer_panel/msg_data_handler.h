#ifndef RVIZ_PLUGIN_MSG_DATA_HANDLER_H
#define RVIZ_PLUGIN_MSG_DATA_HANDLER_H

#include "msg_data.h"
#include "msg_parsers.h"

#include <QObject>

#include <map>
#include <memory>
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

    // logTag names the owner in the log; data is where the views read from.
    explicit MsgDataHandler(std::string logTag = "MSG Viewer", std::unique_ptr<MsgData> data = std::make_unique<MsgData>());

    virtual void DisplaySelectedData(const DeserializedMsgs& msgs, const std::string& topic, int maxRows);
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
    const std::string& GetLogTag() const { return logTag; }

    // The seconds and nanoseconds of a time as its two fields print them.
    static void SplitStamp(double value, long long& seconds, long long& nanoseconds);

protected:
    // Called with every number and every text of a message before the storing filter, for an owner
    // that catches fields the views do not show.
    virtual void CaptureValue(const std::string& path, double value);
    virtual void CaptureText(const std::string& path, const std::string& text);
    // The text of a number as the views get it.
    virtual std::string FormatValue(double value) const;
    void StorageMsg(const DeserializedMsgs& msgs);
    void ConstructTableData();
    void ConstructKeyValueData();
    void SetStoresRows(bool rows) { storesRows = rows; }
    const std::map<std::string, std::vector<std::string>>& GetSelectedFields() const { return selectedFields; }
    const std::string& GetTopic() const { return topic; }
    void SetTopic(const std::string& name, int rows);

private:
    void StorageMsgString(const MsgParsers::DeserializedMsg& msg);
    void StorageMsgValue(const MsgParsers::DeserializedMsg& msg);
    void StorageBlobData(const MsgParsers::DeserializedMsg& msg);
    void StorageMsgConstant(const MsgParsers::DeserializedMsg& msg);
    bool IsStampProperties(const std::string& path, double value);
    // The storing filter: false when the field at path is not stored.
    bool Keep(const std::string& path, bool& hasIndex, bool& hasArray) const;
    void StoreText(const std::string& path, const std::string& text, Rows& rows);
    void ConstructTableNotArrayData(MsgData::Row& row);
    void ConstructTableArrayData(MsgData::Row& row, const Rows& rows, int index);
    bool IsSelected(const std::string& field) const;
    // Whether a value at path can reach a view: its path without the array index is a selected field,
    // or a time whose seconds or nanoseconds are. Nothing else is printed to text.
    bool IsWanted(const std::string& path);
    void UpdateWantedPaths();

    std::string logTag;
    std::unique_ptr<MsgData> ownedData;
    MsgData& data;
    bool storesRows = true;
    bool isArrayMode = false;
    std::string selectedArray;
    int arrayIndex = 0;
    int rowCount = 0;
    int maxRows = 100;
    std::string topic;
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

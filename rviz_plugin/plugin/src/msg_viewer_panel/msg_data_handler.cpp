#include "msg_data_handler.h"

#include "foundation/utils_functions.h"

#include <algorithm>
#include <sstream>

namespace rviz_plugin {

namespace {
template <typename T>
std::string Print(const T& value)
{
    std::stringstream stream;
    stream << value;
    return stream.str();
}
} // namespace

MsgDataHandler::MsgDataHandler(std::string tag, std::unique_ptr<MsgData> owned)
    : logTag(std::move(tag)), ownedData(std::move(owned)), data(*ownedData)
{
}

void MsgDataHandler::CaptureValue(const std::string&, double) {}

void MsgDataHandler::CaptureText(const std::string&, const std::string&) {}

std::string MsgDataHandler::FormatValue(double value) const
{
    return Print(value);
}

void MsgDataHandler::SetTopic(const std::string& name, int rows)
{
    maxRows = rows;
    topic = name;
}

void MsgDataHandler::SplitStamp(double value, long long& seconds, long long& nanoseconds)
{
    seconds = static_cast<long long>(value);
    nanoseconds = static_cast<long long>((value - static_cast<double>(static_cast<int32_t>(seconds))) * 1e9);
}

void MsgDataHandler::SetArrayMode(bool arrayMode, const std::string& arrayName)
{
    isArrayMode = arrayMode;
    selectedArray = arrayName;
}

std::string MsgDataHandler::ParseName(const std::string& path) const
{
    if (topic.empty()) {
        return path;
    }
    std::string result = path;
    for (std::size_t at = result.find(topic); at != std::string::npos; at = result.find(topic, at)) {
        result.erase(at, topic.size());
    }
    return result;
}

std::string MsgDataHandler::ParsePropertiesName(const std::string& path)
{
    const std::size_t slash = path.find('/', 1);
    return slash == std::string::npos ? path : path.substr(slash);
}

std::string MsgDataHandler::ParseArrayProperties(const std::string& path)
{
    const std::size_t point = path.find('.');
    if (point == std::string::npos) {
        return path;
    }
    const std::size_t slash = path.find('/', point);
    const std::string number = path.substr(point + 1, slash == std::string::npos ? std::string::npos : slash - point - 1);
    arrayIndex = Orsa::UtilsFunctions::StringToNumber<int32_t>(number, logTag);
    return path.substr(0, point) + (slash == std::string::npos ? std::string() : path.substr(slash));
}

void MsgDataHandler::CountDataFrame(const std::string& name)
{
    if (data.GetDataFrame().count(name) == 0) {
        data.InitDataFrame(name, 0);
    } else {
        data.CountDataFrame(name);
    }
}

void MsgDataHandler::InitCountDataFrame()
{
    data.ClearDataFrame();
    for (const auto& [name, fields] : selectedFields) {
        CountDataFrame(name);
    }
}

void MsgDataHandler::DisplaySelectedData(const DeserializedMsgs& msgs, const std::string& name, int rows)
{
    SetTopic(name, rows);
    if (selectedFields.count(topic) == 0) {
        return;
    }
    CountDataFrame(topic);
    StorageMsg(msgs);
    if (isArrayMode) {
        ConstructTableData();
    } else {
        ConstructKeyValueData();
    }
}

void MsgDataHandler::StorageMsg(const DeserializedMsgs& msgs)
{
    arrayStringRows.clear();
    arrayValueRows.clear();
    scalarValues.clear();
    const auto found = msgs.find(topic);
    if (found != msgs.end() && found->second != nullptr) {
        StorageMsgString(*found->second);
        StorageMsgValue(*found->second);
        StorageBlobData(*found->second);
        StorageMsgConstant(*found->second);
    }
    if (!arrayStringRows.empty()) {
        rowCount = static_cast<int>(arrayStringRows.size());
    } else if (!arrayValueRows.empty()) {
        rowCount = static_cast<int>(arrayValueRows.size());
    }
    if (rowCount == 0 && isArrayMode) {
        rowCount = 1;
    }
}

bool MsgDataHandler::Keep(const std::string& path, bool& hasIndex, bool& hasArray) const
{
    hasIndex = path.find('.') != std::string::npos;
    hasArray = path.find(selectedArray) != std::string::npos;
    if (!hasIndex && isArrayMode && hasArray) {
        return false;  // the array's own name: no element
    }
    return !(hasIndex && !isArrayMode && !hasArray);
}

void MsgDataHandler::StoreText(const std::string& path, const std::string& text, Rows& rows)
{
    bool hasIndex = false;
    bool hasArray = false;
    if (!Keep(path, hasIndex, hasArray)) {
        return;
    }
    if (!storesRows && hasIndex) {
        return;
    }
    if (!hasIndex) {
        scalarValues[path] = text;
    } else if (hasArray) {
        ParseArrayProperties(path);
        rows[arrayIndex].emplace_back(path, text);
    }
}

void MsgDataHandler::SetSelectedFields(const std::map<std::string, std::vector<std::string>>& fields)
{
    selectedFields = fields;
    UpdateWantedPaths();
}

void MsgDataHandler::SetFieldTypes(const std::map<std::string, std::map<std::string, std::string>>& types)
{
    fieldTypes = types;
    UpdateWantedPaths();
}

void MsgDataHandler::UpdateWantedPaths()
{
    wantedPaths.clear();
    for (const auto& [name, fields] : selectedFields) {
        auto& wanted = wantedPaths[name];
        const auto types = fieldTypes.find(name);
        for (const std::string& field : fields) {
            wanted.insert(field);
            const bool isTime = types != fieldTypes.end() && types->second.count(field) != 0 &&
                                types->second.at(field) == "time";
            if (isTime) {
                wanted.insert(field.substr(0, field.rfind('/')));
            }
        }
    }
}

bool MsgDataHandler::IsWanted(const std::string& path)
{
    const auto wanted = wantedPaths.find(topic);
    if (wanted == wantedPaths.end()) {
        return false;
    }
    const std::size_t point = path.find('.');
    if (point == std::string::npos) {
        return wanted->second.count(path) != 0;
    }
    const std::size_t next = path.find('/', point);
    selectionPath.assign(path, 0, point);
    if (next != std::string::npos) {
        selectionPath.append(path, next, std::string::npos);
    }
    return wanted->second.count(selectionPath) != 0;
}

void MsgDataHandler::StorageMsgString(const MsgParsers::DeserializedMsg& msg)
{
    std::string path;
    for (const auto& [leaf, text] : msg.flatMessage.name) {
        leaf.toStr(path);
        CaptureText(path, text);
        if (IsWanted(path)) {
            StoreText(path, text, arrayStringRows);
        }
    }
}

void MsgDataHandler::StorageMsgValue(const MsgParsers::DeserializedMsg& msg)
{
    for (const auto& [path, value] : msg.flatValues) {
        CaptureValue(path, value);
        if (!IsWanted(path)) {
            continue;
        }
        bool hasIndex = false;
        bool hasArray = false;
        if (!Keep(path, hasIndex, hasArray) || IsStampProperties(path, value)) {
            continue;
        }
        StoreText(path, FormatValue(value), arrayValueRows);
    }
}

bool MsgDataHandler::IsStampProperties(const std::string& path, double value)
{
    const std::string secondsPath = path + "/secs";
    const std::string nanosecondsPath = path + "/nsecs";
    const std::string secondsField = ParseArrayProperties(secondsPath);
    const std::string nanosecondsField = ParseArrayProperties(nanosecondsPath);
    const auto& types = fieldTypes[topic];
    const auto isTime = [&types](const std::string& field) {
        const auto found = types.find(field);
        return found != types.end() && found->second == "time";
    };
    if (!isTime(secondsField) && !isTime(nanosecondsField)) {
        return false;
    }
    long long seconds = 0;
    long long nanoseconds = 0;
    SplitStamp(value, seconds, nanoseconds);
    StoreText(secondsPath, Print(seconds), arrayValueRows);
    StoreText(nanosecondsPath, Print(nanoseconds), arrayValueRows);
    return true;
}

void MsgDataHandler::StorageBlobData(const MsgParsers::DeserializedMsg& msg)
{
    if (!storesRows) {
        return;
    }
    std::string path;
    for (const auto& [leaf, blob] : msg.flatMessage.blob) {
        leaf.toStr(path);
        // Each byte of a blob is an element: only the guard of the filter applies.
        if (!IsWanted(path) || (!isArrayMode && path.find(selectedArray) == std::string::npos)) {
            continue;
        }
        const std::size_t rows = std::min<std::size_t>(static_cast<std::size_t>(std::max(maxRows, 0)), blob.size());
        for (std::size_t i = 0; i < rows; ++i) {
            arrayValueRows[static_cast<int>(i)].emplace_back(path, std::to_string(blob[i]));
        }
        arrayIndex = maxRows - 1;
    }
}

void MsgDataHandler::StorageMsgConstant(const MsgParsers::DeserializedMsg& msg)
{
    data.ClearConstData(topic);
    if (msg.flatMessage.schema == nullptr) {
        return;
    }
    for (const auto& [type, description] : msg.flatMessage.schema->messageLibrary) {
        for (const auto& field : description->fields()) {
            if (field.isConstant()) {
                data.InsertConstData(topic, field.name(), field.value());
            }
        }
    }
}

bool MsgDataHandler::IsSelected(const std::string& field) const
{
    const auto found = selectedFields.find(topic);
    return found != selectedFields.end() &&
           std::find(found->second.begin(), found->second.end(), field) != found->second.end();
}

void MsgDataHandler::ConstructKeyValueData()
{
    data.ClearKeyValueData(topic);
    for (const std::string& field : selectedFields[topic]) {
        const auto value = scalarValues.find(field);
        if (value != scalarValues.end()) {
            data.InsertKeyValueData(topic, ParsePropertiesName(field), value->second);
        }
    }
}

void MsgDataHandler::ConstructTableData()
{
    data.ClearTableTitle();
    data.ClearTableData();
    for (int i = 0; i < rowCount; ++i) {
        MsgData::Row row;
        ConstructTableNotArrayData(row);
        ConstructTableArrayData(row, arrayStringRows, i);
        ConstructTableArrayData(row, arrayValueRows, i);
        data.InsertRowData(row);
    }
    if (selectedFields.count(topic) != 0) {
        std::vector<std::string> titles;
        for (const std::string& field : loadedFields[topic]) {
            titles.push_back(ParseName(field));
        }
        data.SortTableData(titles);
    }
}

void MsgDataHandler::ConstructTableNotArrayData(MsgData::Row& row)
{
    for (const std::string& field : selectedFields[topic]) {
        const auto value = scalarValues.find(field);
        if (value == scalarValues.end()) {
            continue;
        }
        row.push_back(value->second);
        const std::string title = ParseName(field);
        if (!data.HasTableTitle(title)) {
            data.InsertTableTitle(title);
        }
    }
}

void MsgDataHandler::ConstructTableArrayData(MsgData::Row& row, const Rows& rows, int index)
{
    const auto entry = rows.find(index);
    if (entry == rows.end()) {
        return;
    }
    for (const auto& [path, text] : entry->second) {
        const std::string field = ParseArrayProperties(path);
        if (!IsSelected(field)) {
            continue;
        }
        row.push_back(text);
        const std::string title = ParseName(field);
        if (!data.HasTableTitle(title)) {
            data.InsertTableTitle(title);
        }
    }
}

} // namespace rviz_plugin

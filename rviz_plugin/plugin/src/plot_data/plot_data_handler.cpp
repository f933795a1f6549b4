#include "plot_data_handler.h"

#include "plot_log.h"

#include <QDateTime>

#include <charconv>
#include <cstdio>
#include <memory>

namespace rviz_plugin {

PlotDataHandler::PlotDataHandler() : PlotDataHandler(new PlotData()) {}

PlotDataHandler::PlotDataHandler(PlotData* data)
    : MsgDataHandler(plotLogTag, std::unique_ptr<MsgData>(data)), plotData(data)
{
}

bool PlotDataHandler::HasProcessedAllSelectedTopic() const
{
    return processedTopics.size() == GetSelectedFields().size();
}

void PlotDataHandler::UpdateCaptureArray(const std::set<std::string>& keys)
{
    selectedArrays.clear();
    capturesTimeParts.clear();
    for (const std::string& key : keys) {
        if (key.find('.', 1) == std::string::npos) {
            continue;
        }
        const std::size_t slash = key.find('/', 1);
        const std::string topicName = slash == std::string::npos ? key : key.substr(0, slash);
        selectedArrays[topicName].insert(key);
        const auto endsWith = [&key](const std::string& end) {
            return key.size() > end.size() && key.compare(key.size() - end.size(), end.size(), end) == 0;
        };
        capturesTimeParts[topicName] = capturesTimeParts[topicName] || endsWith("/secs") || endsWith("/nsecs");
    }
    isCaptureOnly = !selectedArrays.empty();
    SetStoresRows(!isCaptureOnly);
    processedTopics.clear();
}

void PlotDataHandler::DisplaySelectedData(const DeserializedMsgs& msgs, const std::string& name, int rows)
{
    SetTopic(name, rows);
    if (HasProcessedAllSelectedTopic()) {
        processedTopics.clear();
    }
    if (GetSelectedFields().count(name) != 0) {
        processedTopics[name] = true;
        CountDataFrame(name);
        const auto keys = selectedArrays.find(name);
        captureKeys = keys == selectedArrays.end() ? nullptr : &keys->second;
        const auto parts = capturesTimeParts.find(name);
        timeParts = parts != capturesTimeParts.end() && parts->second;
        if (captureKeys != nullptr) {
            for (const std::string& key : *captureKeys) {
                plotData->ClearArrayData(key);
            }
        }
        stampPath = name + "/header/stamp";
        StorageMsg(msgs);
        captureKeys = nullptr;
        ConstructKeyValueData();
    }
    if (!GetSelectedFields().empty() && HasProcessedAllSelectedTopic()) {
        // The clock as milliseconds since the epoch, without a time zone to look up.
        processedTime = static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000.0;
    }
}

void PlotDataHandler::CaptureValue(const std::string& path, double value)
{
    if (path == stampPath) {
        char text[64];
        std::snprintf(text, sizeof(text), "%f", value);
        plotData->InsertArrayData(path, text);
    }
    if (captureKeys == nullptr) {
        return;
    }
    if (captureKeys->count(path) != 0) {
        plotData->InsertArrayData(path, FormatValue(value));
        return;
    }
    if (!timeParts) {
        return;
    }
    // A time is one number in the message; its two fields are captured under their own paths.
    const std::string seconds = path + "/secs";
    const std::string nanoseconds = path + "/nsecs";
    const bool wantsSeconds = captureKeys->count(seconds) != 0;
    const bool wantsNanoseconds = captureKeys->count(nanoseconds) != 0;
    if (wantsSeconds || wantsNanoseconds) {
        long long secondsValue = 0;
        long long nanosecondsValue = 0;
        SplitStamp(value, secondsValue, nanosecondsValue);
        if (wantsSeconds) {
            plotData->InsertArrayData(seconds, std::to_string(secondsValue));
        }
        if (wantsNanoseconds) {
            plotData->InsertArrayData(nanoseconds, std::to_string(nanosecondsValue));
        }
    }
}

void PlotDataHandler::CaptureText(const std::string& path, const std::string& text)
{
    if (captureKeys != nullptr && captureKeys->count(path) != 0) {
        plotData->InsertArrayData(path, text);
    }
}

std::string PlotDataHandler::FormatValue(double value) const
{
    char text[32];
    const auto end = std::to_chars(text, text + sizeof(text), value).ptr;
    return std::string(text, end);
}

} // namespace rviz_plugin

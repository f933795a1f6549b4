#ifndef RVIZ_PLUGIN_EVALUATE_HISTORY_H
#define RVIZ_PLUGIN_EVALUATE_HISTORY_H

#include <map>
#include <string>
#include <utility>

namespace rviz_plugin {

// Results of the decoding evaluation, kept in <orsaPath>/config/decode_evaluate_record.json:
//   {"Software": [{"video_format": "1080p | 30 fps", "number_of_decode_channels": 5}, ...], ...}
class EvaluateHistory {
public:
    explicit EvaluateHistory(std::string filePath);

    // Reads the file; a missing file is an empty history. False when the file cannot be parsed.
    bool ParseConfigFile();
    // The same from the file's text.
    bool ParseConfigText(const std::string& text);
    bool SaveConfigFile() const;
    bool HasRecord() const { return !records.empty(); }
    // The stored channel count, or -1.
    int GetChannels(const std::string& decoder, const std::string& format) const;
    void SetChannels(const std::string& decoder, const std::string& format, int channels);
    const std::string& GetFilePath() const { return filePath; }

private:
    std::string filePath;
    std::map<std::pair<std::string, std::string>, int> records;
};

} // namespace rviz_plugin

#endif

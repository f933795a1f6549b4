#ifndef ORSA_MAP_OFFSET_FILTER_SETTING_FILE_H
#define ORSA_MAP_OFFSET_FILTER_SETTING_FILE_H

#include "foundation/topic_tf_utility.h"

#include <string>
#include <vector>

namespace Orsa {

// <orsaPath>config/map_offset_filter_setting.json: {"topics": [...], "tf_child_frame_id": [...]}, the
// topics and transform child frames the platform shifts by the map offset. Names are kept without
// their leading slashes.
class MapOffsetFilterSettingFile : public TopicTfSettings {
public:
    static constexpr const char* fileName = "map_offset_filter_setting.json";

    void SetFilePath(const std::string& path) override { filePath = path; }
    // False when the file cannot be read, is not JSON, or a key is missing or of the wrong type; the
    // lists then hold what was read before the fault.
    bool ParseConfigFile() override;
    std::vector<std::string> GetNeedModifiedTopics() const override { return topics; }
    std::vector<std::string> GetNeedModifiedTfChildFrameIds() const override { return childFrameIds; }
    double GetXOffset() const { return xOffset; }
    void SetXOffset(double offset) { xOffset = offset; }
    double GetYOffset() const { return yOffset; }
    void SetYOffset(double offset) { yOffset = offset; }
    bool IsTopicNeedApplyOffset(const std::string& name) const;
    bool IsChildFrameIdNeedApplyOffset(const std::string& name) const;
    // Removes every leading '/' and nothing else.
    static void EraseSlash(std::string& name);

private:
    std::string filePath;
    std::vector<std::string> topics;
    std::vector<std::string> childFrameIds;
    double xOffset = 0.0;
    double yOffset = 0.0;
};

} // namespace Orsa

#endif

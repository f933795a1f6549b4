#include "camera_alias.h"

#include <algorithm>

namespace rviz_plugin {

std::string AliasKey(const std::string& topic)
{
    return !topic.empty() && topic.front() == '/' ? topic.substr(1) : topic;
}

std::string GetRealTopic(const std::string& name)
{
    const std::size_t slash = name.rfind('/');
    return slash == std::string::npos ? name : name.substr(slash + 1);
}

std::string GetCameraFileName(const std::string& name)
{
    std::string file = name;
    if (file.size() >= 1 && file[0] == '/' && (file.size() == 1 || file[1] != '/')) {
        file.erase(0, 1);
    }
    std::replace(file.begin(), file.end(), '/', '-');
    return file;
}

std::string VerifyLengthValidity(const std::string& name)
{
    return name.size() <= maxAliasBytes ? std::string() : std::string(lengthWarning);
}

void RecordCurrentItemDuplicateName(int row, const std::string& name, RowWarnings& /*warnings*/,
                                    NameRows& duplicates)
{
    if (!name.empty()) {
        duplicates[name].insert(row);
    }
}

void RemoveCorrespondItemDuplicateName(int row, const std::string& name, RowWarnings& warnings,
                                       NameRows& duplicates)
{
    for (auto& [text, rows] : duplicates) {
        if (text != name) {
            rows.erase(row);
        }
    }
    // The refresh warns the row again if its new name is shared.
    const auto warning = warnings.find(row);
    if (warning != warnings.end() && warning->second == duplicateWarning) {
        warnings.erase(warning);
    }
}

void RefreshDuplicateNameRecord(RowWarnings& warnings, NameRows& duplicates)
{
    for (auto it = duplicates.begin(); it != duplicates.end();) {
        const std::set<int>& rows = it->second;
        for (int row : rows) {
            if (rows.size() > 1) {
                warnings[row] = duplicateWarning;
            } else if (warnings.count(row) != 0 && warnings[row] == duplicateWarning) {
                warnings.erase(row);
            }
        }
        it = rows.empty() ? duplicates.erase(it) : std::next(it);
    }
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_CAMERA_ALIAS_H
#define RVIZ_PLUGIN_CAMERA_ALIAS_H

#include <map>
#include <set>
#include <string>

namespace rviz_plugin {

// The rules of camera aliases (custom names of camera topics).

// The key of a topic in the alias file: the topic without its leading "/" (inner ones kept), the same
// when storing and looking up, so "/rig/front" and "rig/front" share one alias.
std::string AliasKey(const std::string& topic);
// The text behind the last "/", or the whole name without one.
std::string GetRealTopic(const std::string& name);
// For file names: a name beginning with exactly one "/" loses it; every further "/" becomes "-".
std::string GetCameraFileName(const std::string& name);
// "" when name has fewer than 31 bytes (UTF-8 bytes, not characters), else the warning text.
std::string VerifyLengthValidity(const std::string& name);

constexpr const char* lengthWarning = "A custom name cannot exceed 30 characters.";
constexpr const char* duplicateWarning = "Duplicate name.";
constexpr std::size_t maxAliasBytes = 30;

// The duplicate book-keeping of the rename table: warnings by row, rows by name.
using RowWarnings = std::map<int, std::string>;
using NameRows = std::map<std::string, std::set<int>>;
// The row now carries name (an empty name joins no set).
void RecordCurrentItemDuplicateName(int row, const std::string& name, RowWarnings& warnings, NameRows& duplicates);
// The row leaves every set but the one of name, and its duplicate warning.
void RemoveCorrespondItemDuplicateName(int row, const std::string& name, RowWarnings& warnings, NameRows& duplicates);
// Rows sharing a name are warned; a row alone in its set loses its duplicate warning; empty sets go.
void RefreshDuplicateNameRecord(RowWarnings& warnings, NameRows& duplicates);

} // namespace rviz_plugin

#endif

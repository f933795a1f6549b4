#ifndef RVIZ_PLUGIN_CAPTURE_TYPES_H
#define RVIZ_PLUGIN_CAPTURE_TYPES_H

#include <QMetaType>

#include <cstdint>
#include <string>

namespace rviz_plugin {

// Where a capture stands.
enum class CaptrueStatus { Capturing = 0, Success = 1, SubscriptionError = 2, TimedOut = 3 };

// Why an export failed.
enum SaveErrorType {
    FolderError = 0,       // the folder is not right
    WriteError = 1,        // a file cannot be written
    NoImageData = 2,
    NoPointCloudData = 3,
    CloudTooLarge = 4,     // a cloud above maxCloudBytes
};

// The largest cloud a PCD file takes.
constexpr uint64_t maxCloudBytes = 2863311530ULL;

} // namespace rviz_plugin

Q_DECLARE_METATYPE(rviz_plugin::CaptrueStatus)
Q_DECLARE_METATYPE(rviz_plugin::SaveErrorType)
Q_DECLARE_METATYPE(std::string)

#endif

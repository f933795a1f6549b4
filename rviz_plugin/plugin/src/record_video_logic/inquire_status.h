#ifndef RVIZ_PLUGIN_INQUIRE_STATUS_H
#define RVIZ_PLUGIN_INQUIRE_STATUS_H

#include <QString>

#include <cstdint>

namespace rviz_plugin {

// Disk space and how long a recording can still go on. The last GiB of a disk is a reserve that recording
// never counts on.
class InquireStatus {
public:
    static constexpr int64_t reserveBytes = 0x40000000;
    static constexpr int64_t maxPrintableSeconds = 360000;

    // Free bytes of the file system holding path, or the nearest parent that exists (0 when it cannot be read).
    static int64_t GetCapacityInBit(const QString& path);
    static QString GetRecordableTime(const QString& path, double bytesPerSecond);
    // "hh:mm:ss" of the time freeBytes last at the rate; "00:00:00" within the reserve or without a rate,
    // "99:99:99" from 100 hours on.
    static QString RecordableTime(int64_t freeBytes, double bytesPerSecond);
    static QString FormatDuration(int64_t seconds);
    // "12.34GB", or "512.00MB" below a GiB.
    static QString FormatCapacity(int64_t bytes);
    // "340 KB/s", or "1.25 MB/s" from a MiB a second on.
    static QString FormatWriteSpeed(double bytesPerSecond);
};

} // namespace rviz_plugin

#endif

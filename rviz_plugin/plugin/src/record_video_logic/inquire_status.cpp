#include "inquire_status.h"

#include <QFileInfo>
#include <QStorageInfo>

#include <cmath>

namespace rviz_plugin {

namespace {
constexpr double kibi = 1024.0;
constexpr int64_t secondsPerHour = 3600;
constexpr int64_t secondsPerMinute = 60;

QString TwoDigits(int64_t value)
{
    return QString("%1").arg(value, 2, 10, QChar('0'));
}
} // namespace

int64_t InquireStatus::GetCapacityInBit(const QString& path)
{
    // A folder still to be made lies on the disk of its nearest existing parent.
    QString existing = QFileInfo(path).absoluteFilePath();
    while (!QFileInfo::exists(existing) && existing != "/") {
        existing = QFileInfo(existing).absolutePath();
    }
    const QStorageInfo storage(existing);
    return storage.isValid() ? storage.bytesAvailable() : 0;
}

QString InquireStatus::GetRecordableTime(const QString& path, double bytesPerSecond)
{
    return RecordableTime(GetCapacityInBit(path), bytesPerSecond);
}

QString InquireStatus::RecordableTime(int64_t freeBytes, double bytesPerSecond)
{
    if (freeBytes <= reserveBytes || bytesPerSecond <= 0.0) {
        return "00:00:00";
    }
    const auto seconds = static_cast<int64_t>(static_cast<double>(freeBytes - reserveBytes) / bytesPerSecond);
    if (seconds >= maxPrintableSeconds) {
        return "99:99:99";
    }
    return FormatDuration(seconds);
}

QString InquireStatus::FormatDuration(int64_t seconds)
{
    return QString("%1:%2:%3")
        .arg(TwoDigits(seconds / secondsPerHour))
        .arg(TwoDigits(seconds % secondsPerHour / secondsPerMinute))
        .arg(TwoDigits(seconds % secondsPerMinute));
}

QString InquireStatus::FormatCapacity(int64_t bytes)
{
    const double gib = static_cast<double>(bytes) / (kibi * kibi * kibi);
    if (gib >= 1.0) {
        return QString("%1%2").arg(gib, 0, 'f', 2).arg("GB");
    }
    return QString("%1%2").arg(static_cast<double>(bytes) / (kibi * kibi), 0, 'f', 2).arg("MB");
}

QString InquireStatus::FormatWriteSpeed(double bytesPerSecond)
{
    const double mib = bytesPerSecond / (kibi * kibi);
    if (mib >= 1.0) {
        return QString("%1 %2/s").arg(mib, 0, 'f', 2).arg("MB");
    }
    return QString("%1 %2/s").arg(std::lround(bytesPerSecond / kibi)).arg("KB");
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_DISPLAY_STATUS_H
#define RVIZ_PLUGIN_DISPLAY_STATUS_H

#include <QWidget>

#include <cstdint>

class QLabel;

namespace rviz_plugin {

// The three figures of a running recording: free space, write speed, recorded and recordable time.
class DisplayStatus : public QWidget {
    Q_OBJECT

public:
    explicit DisplayStatus(QWidget* parent = nullptr);
    void Update(int64_t freeBytes, double bytesPerSecond, int64_t recordedSeconds);
    void Reset();

    QLabel* GetCapacityValue() const { return capacityValue; }
    QLabel* GetWriteSpeedValue() const { return writeSpeedValue; }
    QLabel* GetTimeValue() const { return timeValue; }

private:
    QLabel* capacityValue = nullptr;
    QLabel* writeSpeedValue = nullptr;
    QLabel* timeValue = nullptr;
};

} // namespace rviz_plugin

#endif

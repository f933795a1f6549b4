#ifndef RVIZ_PLUGIN_LATEST_VALUE_RELAY_H
#define RVIZ_PLUGIN_LATEST_VALUE_RELAY_H

#include <mutex>
#include <utility>

namespace rviz_plugin {

// Hands the newest of a stream of values from a producer thread to a reader: a value offered before
// the reader took the previous one replaces it, so a burst costs the reader one take.
template <typename T>
class LatestValueRelay {
public:
    // Keeps value as the newest. True when nothing was waiting: the reader must be told.
    bool Offer(const T& value)
    {
        std::lock_guard<std::mutex> lock(mutex);
        latest = value;
        const bool tell = !waiting;
        waiting = true;
        return tell;
    }

    // Moves the newest value into value; false when none came since the last take.
    bool Take(T& value)
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (!waiting) {
            return false;
        }
        value = std::move(latest);
        waiting = false;
        return true;
    }

private:
    std::mutex mutex;
    T latest{};
    bool waiting = false;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_TICK_SCHEDULE_H
#define RVIZ_PLUGIN_TICK_SCHEDULE_H

#include <chrono>

namespace rviz_plugin {

// When the recording clock beats: `perSecond` ticks a second measured from the start, so that whole
// milliseconds of timer interval (33 for 30 a second) do not add up to drift. A late tick is followed at
// once by the next; ticks are never skipped, so the count always matches the time recorded.
class TickSchedule {
public:
    using Clock = std::chrono::steady_clock;

    explicit TickSchedule(int perSecond) : perSecond(perSecond) {}

    void Start(Clock::time_point now)
    {
        start = now;
        ticks = 0;
    }
    void Tick() { ++ticks; }
    // The wait from now until the next tick is due.
    std::chrono::milliseconds NextWait(Clock::time_point now) const
    {
        const auto due = start + std::chrono::duration_cast<Clock::duration>(
                                     std::chrono::duration<double>(static_cast<double>(ticks + 1) / perSecond));
        const auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(due - now);
        return wait.count() > 0 ? wait : std::chrono::milliseconds(0);
    }

private:
    int perSecond;
    Clock::time_point start;
    long long ticks = 0;
};

} // namespace rviz_plugin

#endif

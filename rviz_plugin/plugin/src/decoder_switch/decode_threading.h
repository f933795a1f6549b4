#ifndef RVIZ_PLUGIN_DECODE_THREADING_H
#define RVIZ_PLUGIN_DECODE_THREADING_H

#include <cstddef>

namespace rviz_plugin {

// How one stream's software decoder uses threads. One thread keeps no picture back and spends
// nothing on handing work over; frame threads decode several pictures at once, faster, but each
// extra thread holds a picture back (a frame interval of latency each). A stream starts on one thread
// and moves to frame threads at a key frame once its queue shows it needs more than one core; after a
// long calm it tries one thread again.
class DecodeThreading {
public:
    struct Settings {
        // Access units still waiting when one is taken that mean the decoder is falling behind.
        std::size_t behindQueueLength = 3;
        // Units taken with nothing waiting, on frame threads, before one thread is tried again.
        unsigned calmUnits = 900;
    };

    DecodeThreading() = default;
    explicit DecodeThreading(const Settings& settings) : settings(settings) {}

    // Called for each access unit taken for decoding with the number still waiting behind it. True
    // when the decoder is to be rebuilt before this unit (always a key frame) with FrameThreads().
    bool Next(std::size_t waiting, bool keyFrame);
    bool FrameThreads() const { return frameThreads; }
    // A new stream (a reset or another decoder): one thread again.
    void Reset();

private:
    Settings settings;
    bool frameThreads = false;
    bool behind = false;
    unsigned calm = 0;
};

} // namespace rviz_plugin

#endif

#include "decode_threading.h"

namespace rviz_plugin {

bool DecodeThreading::Next(std::size_t waiting, bool keyFrame)
{
    if (waiting >= settings.behindQueueLength) {
        behind = true;
    }
    calm = frameThreads && waiting == 0 ? calm + 1 : 0;
    if (!keyFrame) {
        return false;
    }
    // A decoder is only rebuilt at a key frame, where the new one can start.
    const bool change = frameThreads ? calm >= settings.calmUnits : behind;
    behind = false;
    if (change) {
        frameThreads = !frameThreads;
        calm = 0;
    }
    return change;
}

void DecodeThreading::Reset()
{
    frameThreads = false;
    behind = false;
    calm = 0;
}

} // namespace rviz_plugin

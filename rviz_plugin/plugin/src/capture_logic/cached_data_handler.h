#ifndef RVIZ_PLUGIN_CACHED_DATA_HANDLER_H
#define RVIZ_PLUGIN_CACHED_DATA_HANDLER_H

#include "data_handler_base.h"

#include <algorithm>
#include <mutex>
#include <shared_mutex>
#include <vector>

namespace rviz_plugin {

// The messages of one topic kept for a capture, behind a read-write lock: written on the spinner thread,
// read on the GUI thread.
template <typename Msg>
class CachedDataHandler : public DataHandlerBase {
public:
    using MsgPtr = boost::shared_ptr<const Msg>;
    static constexpr uint32_t subscribeQueueSize = 10;

    int CaptureDataCount() const override
    {
        std::shared_lock<std::shared_mutex> lock(cacheLock);
        return static_cast<int>(messages.size());
    }
    std::vector<ros::Time> GetDataHeaderStamps() const override
    {
        std::shared_lock<std::shared_mutex> lock(cacheLock);
        std::vector<ros::Time> stamps;
        for (const auto& message : messages) {
            stamps.push_back(message->header.stamp);
        }
        return stamps;
    }
    void RecvMsg(const MsgPtr& msg) { CacheData(msg); }

protected:
    void CacheData(const MsgPtr& msg)
    {
        std::unique_lock<std::shared_mutex> lock(cacheLock);
        if (WantsMore(static_cast<int>(messages.size()))) {
            messages.push_back(msg);
        }
    }
    // Every kept message whose stamp is one of stamps (two with one stamp are both returned).
    std::vector<MsgPtr> Select(const std::vector<ros::Time>& stamps) const
    {
        std::shared_lock<std::shared_mutex> lock(cacheLock);
        std::vector<MsgPtr> selected;
        for (const auto& message : messages) {
            if (std::find(stamps.begin(), stamps.end(), message->header.stamp) != stamps.end()) {
                selected.push_back(message);
            }
        }
        return selected;
    }
    void Subscribe(ros::NodeHandle& node) override
    {
        subscriber = node.subscribe<Msg>(topic, subscribeQueueSize, &CachedDataHandler::RecvMsg, this);
    }

private:
    mutable std::shared_mutex cacheLock;
    std::vector<MsgPtr> messages;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_MESSAGE_QUEUE_H
#define RVIZ_PLUGIN_MESSAGE_QUEUE_H

#include "frames/yuv_texture_data.h"

#include <ros/time.h>
#include <std_msgs/Header.h>
#include <visualization_msgs/MarkerArray.h>

#include <boost/shared_ptr.hpp>

#include <deque>
#include <memory>

namespace rviz_plugin {

// A marker array with the header of its first marker, so that it can be matched by stamp.
struct MarkerArrayStamped {
    std_msgs::Header header;
    boost::shared_ptr<const visualization_msgs::MarkerArray> markerArray;
};

// A queue of one input of the overlay node. It has no lock: its users hold the node's mutex.
class MessageQueue {
public:
    virtual ~MessageQueue() = default;
    virtual std::size_t Size() const = 0;
    virtual bool Empty() const = 0;
    // Stamp of the front element; the queue must not be empty.
    virtual ros::Time FrontTimestamp() const = 0;
    virtual void Pop() = 0;
    virtual void Clear() = 0;
};

inline const ros::Time& StampOf(const std::shared_ptr<YuvTextureData>& image)
{
    return image->GetFrameHeader().stamp;
}

inline const ros::Time& StampOf(const std::shared_ptr<MarkerArrayStamped>& markers)
{
    return markers->header.stamp;
}

template <typename M>
const ros::Time& StampOf(const boost::shared_ptr<const M>& message)
{
    return message->header.stamp;
}

template <typename T>
class SpecificMessageQueue : public MessageQueue {
public:
    std::size_t Size() const override { return queue.size(); }
    bool Empty() const override { return queue.empty(); }
    ros::Time FrontTimestamp() const override { return StampOf(queue.front()); }
    void Pop() override { queue.pop_front(); }
    // Swaps with an empty deque so that the memory goes back at once.
    void Clear() override { std::deque<T>().swap(queue); }

    std::deque<T>& GetQueue() { return queue; }

private:
    std::deque<T> queue;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_MESSAGE_INTAKE_H
#define RVIZ_PLUGIN_MESSAGE_INTAKE_H

#include "latest_value_relay.h"

#include <ros/callback_queue.h>
#include <ros/ros.h>
#include <ros/spinner.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// The ROS side of a vehicle panel: its topics are received on a thread of their own, each message is
// checked there, and only the newest good one is kept for the GUI, which is told through onGoodMessage
// (called on the intake thread). Stopping (or destroying) the intake waits for a running callback.
class MessageIntake {
public:
    explicit MessageIntake(std::function<void()> onGoodMessage);
    ~MessageIntake();
    MessageIntake(const MessageIntake&) = delete;
    MessageIntake& operator=(const MessageIntake&) = delete;

    // Subscribes with the given queue size; Checker(message).IsMsgValid() decides what is kept.
    template <typename Msg, typename Checker>
    std::shared_ptr<LatestValueRelay<Msg>> Subscribe(const std::string& topic, uint32_t queueSize)
    {
        auto relay = std::make_shared<LatestValueRelay<Msg>>();
        std::function<void()> notify = onGoodMessage;
        boost::function<void(const boost::shared_ptr<const Msg>&)> callback =
            [relay, notify](const boost::shared_ptr<const Msg>& message) {
                if (Checker(*message).IsMsgValid() && relay->Offer(*message)) {
                    notify();
                }
            };
        subscribers.push_back(node.subscribe<Msg>(topic, queueSize, callback));
        return relay;
    }

    // Starts receiving; subscriptions made before are served from then on.
    void Start();
    void Stop();

private:
    std::function<void()> onGoodMessage;
    ros::CallbackQueue queue;
    ros::NodeHandle node;
    std::vector<ros::Subscriber> subscribers;
    std::unique_ptr<ros::AsyncSpinner> spinner;
};

} // namespace rviz_plugin

#endif

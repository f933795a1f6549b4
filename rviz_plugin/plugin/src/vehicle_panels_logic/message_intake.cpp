#include "message_intake.h"

namespace rviz_plugin {

MessageIntake::MessageIntake(std::function<void()> onGoodMessage) : onGoodMessage(std::move(onGoodMessage))
{
    node.setCallbackQueue(&queue);
}

MessageIntake::~MessageIntake()
{
    Stop();
}

void MessageIntake::Start()
{
    if (!spinner) {
        spinner = std::make_unique<ros::AsyncSpinner>(1, &queue);
        spinner->start();
    }
}

void MessageIntake::Stop()
{
    if (spinner) {
        spinner->stop();
        spinner.reset();
    }
    for (ros::Subscriber& subscriber : subscribers) {
        subscriber.shutdown();
    }
    subscribers.clear();
    queue.clear();
}

} // namespace rviz_plugin

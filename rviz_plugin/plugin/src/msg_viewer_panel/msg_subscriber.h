#ifndef RVIZ_PLUGIN_MSG_SUBSCRIBER_H
#define RVIZ_PLUGIN_MSG_SUBSCRIBER_H

#include "msg_data_handler.h"
#include "msg_parsers.h"

#include "foundation/log_level.h"

#include <QObject>
#include <QString>

#ifndef Q_MOC_RUN
#include <ros/ros.h>
#endif

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace rviz_plugin {

// Subscribes topics of any type and keeps each topic's last decoded message. All of it runs on the
// thread that pumps the global ROS callback queue: no locks.
class MsgSubscriber : public QObject {
    Q_OBJECT
public:
    // queueSize: the messages of a displayed topic kept between two turns of the callback queue.
    explicit MsgSubscriber(std::unique_ptr<MsgDataHandler> handler = std::make_unique<MsgDataHandler>(),
                           uint32_t queueSize = 10);

    // Every topic on the master, for the definition dialog, which needs each topic's definition and
    // no values: a topic is subscribed until its first message has given its definition, and no
    // message of it is decoded. Subscribing asks the master once a topic: with a budget, the call
    // returns when it is spent and the next call goes on where it stopped; true when all are done.
    bool UpdateMsgDefinitionSubscriber(std::chrono::milliseconds budget = std::chrono::milliseconds::max());
    // The topics of one panel, replacing the earlier subscriptions.
    virtual void UpdateMsgDisplaySubscriber(const std::map<std::string, std::vector<std::string>>& topicFields);
    virtual void ShutdownSubscriber();
    const DeserializedMsgs& GetDeserializedMsg() const { return deserializedMsgs; }
    MsgDataHandler& GetHandler() { return *handler; }

    // False when the message was not decoded: its type changed, its bytes or definition are bad.
    bool TopicCallbackSelect(const RosMsgParser::ShapeShifter& msg, const std::string& topic);
    virtual void TopicCallbackDisplay(const RosMsgParser::ShapeShifter& msg, const std::string& topic);
    virtual void TopicCallbackDefinition(const RosMsgParser::ShapeShifter& msg, const std::string& topic);

Q_SIGNALS:
    void UpdateDisplayModel();
    void SignalErrorCatched(const QString& topic, const QString& message);

protected:
    enum class Purpose { Definition, Display };
    ros::Subscriber Subscribe(const std::string& topic, Purpose purpose);
    void Log(const std::string& message, Orsa::LogLevel level = Orsa::LogLevel::Error) const;

    std::map<std::string, ros::Subscriber> subscribers;
    int maxRows = 100;
    const uint32_t displayQueueSize;

private:
    MsgParsers::CachedPack* Register(const RosMsgParser::ShapeShifter& msg, const std::string& topic);

    std::unique_ptr<MsgDataHandler> handler;
    ros::NodeHandle nodeHandle;
    MsgParsers parsers;
    DeserializedMsgs deserializedMsgs;
    std::vector<std::string> pendingTopics;  // of the master's list, not yet looked at
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_MSG_SUBSCRIBER_H
#define RVIZ_PLUGIN_MSG_SUBSCRIBER_H

#include "msg_data_handler.h"
#include "msg_parsers.h"

#include <QObject>
#include <QString>

#ifndef Q_MOC_RUN
#include <ros/ros.h>
#endif

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace rviz_plugin {

// Subscribes topics of any type and keeps each topic's last decoded message. All of it runs on the
// thread that pumps the global ROS callback queue: no locks.
class MsgSubscriber : public QObject {
    Q_OBJECT
public:
    MsgSubscriber();

    // Every topic on the master, for the definition dialog, which needs each topic's definition and
    // no values: a topic is subscribed until its first message has given its definition, and no
    // message of it is decoded. Subscribing asks the master once a topic: with a budget, the call
    // returns when it is spent and the next call goes on where it stopped; true when all are done.
    bool UpdateMsgDefinitionSubscriber(std::chrono::milliseconds budget = std::chrono::milliseconds::max());
    // The topics of one panel, replacing the earlier subscriptions.
    void UpdateMsgDisplaySubscriber(const std::map<std::string, std::vector<std::string>>& topicFields);
    void ShutdownSubscriber();
    const DeserializedMsgs& GetDeserializedMsg() const { return deserializedMsgs; }
    MsgDataHandler& GetHandler() { return handler; }

    void TopicCallbackSelect(const RosMsgParser::ShapeShifter& msg, const std::string& topic);
    void TopicCallbackDisplay(const RosMsgParser::ShapeShifter& msg, const std::string& topic);
    void TopicCallbackDefinition(const RosMsgParser::ShapeShifter& msg, const std::string& topic);

Q_SIGNALS:
    void UpdateDisplayModel();
    void SignalErrorCatched(const QString& topic, const QString& message);

private:
    enum class Purpose { Definition, Display };
    ros::Subscriber Subscribe(const std::string& topic, Purpose purpose);
    MsgParsers::CachedPack* Register(const RosMsgParser::ShapeShifter& msg, const std::string& topic);

    MsgDataHandler handler;
    ros::NodeHandle nodeHandle;
    MsgParsers parsers;
    std::map<std::string, ros::Subscriber> subscribers;
    DeserializedMsgs deserializedMsgs;
    std::vector<std::string> pendingTopics;  // of the master's list, not yet looked at
    int maxRows = 100;
};

} // namespace rviz_plugin

#endif

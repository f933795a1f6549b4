#include "msg_subscriber.h"

#include "foundation/logger.h"
#include "foundation/master_topics.h"

namespace rviz_plugin {

namespace {
constexpr uint32_t definitionQueueSize = 10;
constexpr int maxArraySize = 100;
} // namespace

MsgSubscriber::MsgSubscriber(std::unique_ptr<MsgDataHandler> dataHandler, uint32_t queueSize)
    : displayQueueSize(queueSize), handler(std::move(dataHandler))
{
}

void MsgSubscriber::Log(const std::string& message, Orsa::LogLevel level) const
{
    Orsa::Logger::GetInstance().WriteLog(handler->GetLogTag(), level, message);
}

ros::Subscriber MsgSubscriber::Subscribe(const std::string& topic, Purpose purpose)
{
    ros::SubscribeOptions options;
    options.topic = topic;
    options.queue_size = purpose == Purpose::Display ? displayQueueSize : definitionQueueSize;
    options.md5sum = ros::message_traits::md5sum<RosMsgParser::ShapeShifter>();
    options.datatype = ros::message_traits::datatype<RosMsgParser::ShapeShifter>();
    options.helper = boost::make_shared<ros::SubscriptionCallbackHelperT<const RosMsgParser::ShapeShifter::ConstPtr&>>(
        [this, topic, purpose](const RosMsgParser::ShapeShifter::ConstPtr& msg) {
            if (purpose == Purpose::Display) {
                TopicCallbackDisplay(*msg, topic);
            } else {
                TopicCallbackDefinition(*msg, topic);
            }
        });
    return nodeHandle.subscribe(options);
}

bool MsgSubscriber::UpdateMsgDefinitionSubscriber(std::chrono::milliseconds budget)
{
    if (pendingTopics.empty()) {
        ros::master::V_TopicInfo topics;
        GetTopicsWithoutWaiting(topics);
        for (auto topic = topics.rbegin(); topic != topics.rend(); ++topic) {
            pendingTopics.push_back(topic->name);
        }
    }
    const auto start = std::chrono::steady_clock::now();
    while (!pendingTopics.empty() &&
           (budget == std::chrono::milliseconds::max() || std::chrono::steady_clock::now() - start < budget)) {
        const std::string name = std::move(pendingTopics.back());
        pendingTopics.pop_back();
        auto subscriber = subscribers.find(name);
        if (deserializedMsgs.count(name) != 0) {
            if (subscriber != subscribers.end()) {
                subscriber->second.shutdown();
                subscribers.erase(subscriber);
            }
        } else if (subscriber == subscribers.end() || !subscriber->second) {
            subscribers[name] = Subscribe(name, Purpose::Definition);
        }
    }
    return pendingTopics.empty();
}

void MsgSubscriber::UpdateMsgDisplaySubscriber(const std::map<std::string, std::vector<std::string>>& topicFields)
{
    subscribers.clear();
    for (const auto& [topic, fields] : topicFields) {
        subscribers[topic] = Subscribe(topic, Purpose::Display);
    }
}

void MsgSubscriber::ShutdownSubscriber()
{
    pendingTopics.clear();
    for (auto& [topic, subscriber] : subscribers) {
        subscriber.shutdown();
    }
}

MsgParsers::CachedPack* MsgSubscriber::Register(const RosMsgParser::ShapeShifter& msg, const std::string& topic)
{
    try {
        parsers.registerParser(topic, msg, maxArraySize);
        return parsers.getPack(topic);
    } catch (const std::exception& error) {
        Log("Failed to parse the definition of " + topic + ": " + error.what());
        return nullptr;
    }
}

void MsgSubscriber::TopicCallbackDefinition(const RosMsgParser::ShapeShifter& msg, const std::string& topic)
{
    MsgParsers::CachedPack* pack = Register(msg, topic);
    if (pack != nullptr && deserializedMsgs.count(topic) == 0) {
        pack->msg.flatMessage.schema = pack->parser.getSchema();
        deserializedMsgs[topic] = &pack->msg;
    }
}

bool MsgSubscriber::TopicCallbackSelect(const RosMsgParser::ShapeShifter& msg, const std::string& topic)
{
    MsgParsers::CachedPack* pack = Register(msg, topic);
    if (pack == nullptr) {
        return false;
    }
    const std::string typeChanged =
        "The type of the newly received message whose topic is " + topic +
        " is different from the type of the previously published message. Close or remove this MSG Viewer and add a "
        "new one to subscribe to this topic, or restart Orsa and subscribe to this topic again, or change the topic "
        "name of the message to be published.";
    // The parser stays bound to the first type; bytes of another type are not decoded with it.
    if (msg.getDataType() != pack->datatype) {
        Log(typeChanged);
        return false;
    }
    try {
        pack->parser.deserializeIntoFlatMsg(RosMsgParser::Span<uint8_t>(msg.raw_data()), &pack->scratch.flatMessage);
        RosMsgParser::CreateRenamedValues(pack->scratch.flatMessage, pack->scratch.flatValues);
    } catch (const RosMsgParser::RangeException& error) {
        Log(error.what());
        Q_EMIT SignalErrorCatched(QString::fromStdString(topic),
                                  "In the sent data, the maximum value of the field of the int64 type exceeds "
                                  "18014398509482060, or the maximum value of the field of the uint64 type exceeds "
                                  "27137417339209760.");
        return false;
    } catch (const std::runtime_error&) {
        Log(typeChanged);
        return false;
    }
    std::swap(pack->msg, pack->scratch);
    Q_EMIT SignalErrorCatched(QString(), QString());
    deserializedMsgs[topic] = &pack->msg;
    return true;
}

void MsgSubscriber::TopicCallbackDisplay(const RosMsgParser::ShapeShifter& msg, const std::string& topic)
{
    TopicCallbackSelect(msg, topic);
    handler->DisplaySelectedData(deserializedMsgs, topic, maxRows);
    Q_EMIT UpdateDisplayModel();
}

} // namespace rviz_plugin

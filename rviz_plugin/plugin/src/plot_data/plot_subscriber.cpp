#include "plot_subscriber.h"

#include "foundation/master_topics.h"

#include <memory>

namespace rviz_plugin {

PlotSubscriber::PlotSubscriber() : MsgSubscriber(std::make_unique<PlotDataHandler>(), displayQueueSize)
{
    qRegisterMetaType<QVector<QString>>("QVector<QString>");
    moveToThread(&thread);
    connect(this, &PlotSubscriber::SignaleUpdateSubscriber, this, &PlotSubscriber::SlotSubscriber);
    connect(this, &PlotSubscriber::SignaleUpdateDisplaySubscriber, this, &PlotSubscriber::SlotDisplaySubscriber);
    connect(this, &PlotSubscriber::SignalShutdownSubScriber, this, &PlotSubscriber::SlotShutdownSubscriber);
    thread.start(QThread::InheritPriority);
}

PlotSubscriber::~PlotSubscriber()
{
    thread.quit();
    thread.wait();
    // The thread is gone: the subscriptions end here, before any callback could reach this object.
    for (auto& [topic, subscriber] : subscribers) {
        subscriber.shutdown();
    }
}

void PlotSubscriber::UpdateMsgDefinitionSubscriber()
{
    Q_EMIT SignaleUpdateSubscriber();
}

void PlotSubscriber::UpdateMsgDisplaySubscriber(const std::map<std::string, std::vector<std::string>>& topicFields)
{
    QVector<QString> topics;
    for (const auto& [topic, fields] : topicFields) {
        topics.push_back(QString::fromStdString(topic));
    }
    Q_EMIT SignaleUpdateDisplaySubscriber(topics);
}

void PlotSubscriber::ShutdownSubscriber()
{
    Q_EMIT SignalShutdownSubScriber();
}

void PlotSubscriber::SlotSubscriber()
{
    ros::master::V_TopicInfo topics;
    GetTopicsWithoutWaiting(topics);
    for (const auto& topic : topics) {
        bool defined = false;
        {
            std::lock_guard<std::mutex> lock(definedMutex);
            defined = definedTopics.count(topic.name) != 0;
        }
        const auto subscriber = subscribers.find(topic.name);
        if (defined) {
            if (subscriber != subscribers.end()) {
                subscriber->second.shutdown();
                subscribers.erase(subscriber);
            }
        } else if (subscriber == subscribers.end() || !subscriber->second) {
            subscribers[topic.name] = Subscribe(topic.name, Purpose::Definition);
        }
    }
}

void PlotSubscriber::SlotDisplaySubscriber(const QVector<QString>& topics)
{
    subscribers.clear();
    for (const QString& topic : topics) {
        subscribers[topic.toStdString()] = Subscribe(topic.toStdString(), Purpose::Display);
    }
}

void PlotSubscriber::SlotShutdownSubscriber()
{
    for (auto& [topic, subscriber] : subscribers) {
        subscriber.shutdown();
    }
    subscribers.clear();
}

void PlotSubscriber::TopicCallbackDefinition(const RosMsgParser::ShapeShifter& msg, const std::string& topic)
{
    MsgSubscriber::TopicCallbackDefinition(msg, topic);
    if (GetDeserializedMsg().count(topic) != 0) {
        std::lock_guard<std::mutex> lock(definedMutex);
        definedTopics.insert(topic);
    }
}

void PlotSubscriber::TopicCallbackDisplay(const RosMsgParser::ShapeShifter& msg, const std::string& topic)
{
    // A message that did not decode reaches no curve.
    if (!TopicCallbackSelect(msg, topic)) {
        return;
    }
    GetHandler().DisplaySelectedData(GetDeserializedMsg(), topic, maxRows);
    Q_EMIT SignalUpdateData(QString::fromStdString(topic));
}

} // namespace rviz_plugin

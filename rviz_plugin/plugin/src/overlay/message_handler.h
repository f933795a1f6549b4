#ifndef RVIZ_PLUGIN_MESSAGE_HANDLER_H
#define RVIZ_PLUGIN_MESSAGE_HANDLER_H

#include <QObject>
#include <QString>
#include <QTimer>

#ifndef Q_MOC_RUN
#include <message_filters/subscriber.h>
#include <ros/ros.h>
#include <rviz/properties/status_property.h>
#endif

namespace rviz_plugin {

// Subscriber of one perception input of a video item. It reports in the input's status list
// whether the topic works and whether data keeps arriving.
class MessageHandler : public QObject {
    Q_OBJECT
public:
    MessageHandler() = default;

    void Initialize();
    bool IsSubscribed() const { return subscribed; }

public Q_SLOTS:
    void OnSubscribe(const QString& topic, int queueSize);
    virtual void OnUnsubscribe();
    void CheckIfRecvFrameInSecond();

Q_SIGNALS:
    void SetStatus(rviz::StatusProperty::Level level, const QString& key, const QString& text);
    void DeleteStatus(const QString& key);
    void RequestDisplayReset();
    void RequestDisplayRenderContext();

protected:
    void CountMsg();
    void Subscribed();
    void Unsubscribed();
    virtual bool HasSubscribed(const QString& topic, int queueSize, QString& error) = 0;

    ros::NodeHandle nodeHandle;
    unsigned receivedCount = 0;
    unsigned lastCount = 0;
    bool subscribed = false;
    QTimer* timer = nullptr;
};

// The subscription of one message type. Derived is the handler class, which declares the signal
// SendMsg(const boost::shared_ptr<const M>&) that every received message goes out on.
template <typename Derived, typename M>
class TypedMessageHandler : public MessageHandler {
public:
    TypedMessageHandler() { subscriber.registerCallback(&TypedMessageHandler::RecvMsg, this); }

    void OnUnsubscribe() override
    {
        subscriber.unsubscribe();
        MessageHandler::OnUnsubscribe();
    }

    void RecvMsg(const boost::shared_ptr<const M>& message)
    {
        CountMsg();
        Q_EMIT static_cast<Derived*>(this)->SendMsg(message);
    }

protected:
    // A new subscription replaces the previous one.
    bool HasSubscribed(const QString& topic, int queueSize, QString& error) override
    {
        try {
            subscriber.subscribe(nodeHandle, topic.toStdString(), static_cast<uint32_t>(queueSize));
        } catch (const ros::Exception& exception) {
            error = exception.what();
            return false;
        }
        return true;
    }

    message_filters::Subscriber<M> subscriber;
};

} // namespace rviz_plugin

#endif

#include "message_handler.h"

namespace rviz_plugin {

namespace {
constexpr int checkPeriodMs = 1000;
const char* const topicKey = "Topic";
const char* const receivingKey = "Data receiving failure";
} // namespace

void MessageHandler::Initialize()
{
    timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &MessageHandler::CheckIfRecvFrameInSecond);
    timer->start(checkPeriodMs);
}

void MessageHandler::OnSubscribe(const QString& topic, int queueSize)
{
    Q_EMIT SetStatus(rviz::StatusProperty::Ok, topicKey, "No data frame received");
    Q_EMIT RequestDisplayReset();
    QString error;
    if (HasSubscribed(topic, queueSize, error)) {
        Q_EMIT SetStatus(rviz::StatusProperty::Ok, topicKey, "OK");
        Subscribed();
        Q_EMIT RequestDisplayRenderContext();
    } else {
        Q_EMIT SetStatus(rviz::StatusProperty::Error, topicKey, "Error subscribing: " + error);
    }
}

void MessageHandler::OnUnsubscribe()
{
    Unsubscribed();
}

void MessageHandler::CountMsg()
{
    ++receivedCount;
    if (receivedCount != 0) {
        Q_EMIT SetStatus(rviz::StatusProperty::Ok, topicKey, QString::number(receivedCount) + " data frames received");
    } else {
        Q_EMIT SetStatus(rviz::StatusProperty::Warn, topicKey, "No data frame received");
    }
}

void MessageHandler::Subscribed()
{
    subscribed = true;
    receivedCount = 0;
    lastCount = 0;
}

void MessageHandler::Unsubscribed()
{
    subscribed = false;
}

void MessageHandler::CheckIfRecvFrameInSecond()
{
    if (!subscribed) {
        Q_EMIT DeleteStatus(receivingKey);
        return;
    }
    if (receivedCount == lastCount) {
        Q_EMIT SetStatus(rviz::StatusProperty::Warn, receivingKey, "No data was received in the last 1 second.");
    } else {
        Q_EMIT DeleteStatus(receivingKey);
    }
    lastCount = receivedCount;
}

} // namespace rviz_plugin

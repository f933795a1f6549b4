#include "input_message_base.h"

#include "foundation/rviz_helpers.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/int_property.h>
#include <rviz/properties/ros_topic_property.h>
#include <rviz/properties/status_list.h>
#endif

namespace rviz_plugin {

namespace {
constexpr int defaultQueueSize = 30;
constexpr int minQueueSize = 5;
constexpr int maxQueueSize = 10000;
} // namespace

InputMessageBase::InputMessageBase(const QString& name, bool defaultValue, const QString& description,
                                   std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : rviz::BoolProperty(name, defaultValue, description, parent), parameters(params)
{
}

void InputMessageBase::Initialize(MessageId id, const QString& messageType, const QString& topicDescription,
                                  const QString& queueDescription)
{
    messageId = id;
    connect(this, &rviz::Property::changed, this, &InputMessageBase::OnValueChanged);
    InitializeBasicProperties(messageType, topicDescription, queueDescription);
}

void InputMessageBase::InitializeBasicProperties(const QString& messageType, const QString& topicDescription,
                                                 const QString& queueDescription)
{
    statusList = new rviz::StatusList("Status", this);
    statusList->setStatus(rviz::StatusProperty::Ok, "Frequency", "0 Hz");
    topicProperty = new rviz::RosTopicProperty("Topic", "", messageType, topicDescription, this,
                                               SLOT(OnSubscriptionInfoChanged()), this);
    queueSizeProperty = new rviz::IntProperty("Queue Size", defaultQueueSize, queueDescription, this,
                                              SLOT(OnSubscriptionInfoChanged()), this);
    queueSizeProperty->setMin(minQueueSize);
    queueSizeProperty->setMax(maxQueueSize);
}

int InputMessageBase::GetQueueSize() const
{
    return queueSizeProperty->getInt();
}

void InputMessageBase::OnValueChanged()
{
    {
        std::lock_guard<std::mutex> lock(parameters->mutex);
        parameters->config.messages[messageId].enabled = getBool();
        parameters->configChanged = true;
    }
    if (!getBool()) {
        Q_EMIT UnSubscribe();
        Q_EMIT ClearQueue(messageId);
        return;
    }
    RequestSubscription();
}

void InputMessageBase::OnSubscriptionInfoChanged()
{
    if (getBool()) {
        RequestSubscription();
    }
}

void InputMessageBase::RequestSubscription()
{
    // A perception input without a topic has nothing to subscribe to; an old subscription ends.
    // The image input hands the empty topic on: its video handler releases its decoder then.
    if (messageId != Image && topicProperty->getTopic().isEmpty()) {
        Q_EMIT UnSubscribe();
        return;
    }
    Q_EMIT Subscribe(topicProperty->getTopic(), GetQueueSize());
}

void InputMessageBase::OnEnableDisplay()
{
    if (getBool() && !topicProperty->getTopic().isEmpty()) {
        Q_EMIT Subscribe(topicProperty->getTopic(), GetQueueSize());
    }
}

void InputMessageBase::OnDisableDisplay()
{
    Q_EMIT UnSubscribe();
    Q_EMIT ClearQueue(messageId);
}

void InputMessageBase::OnFrequencyChanged(const unsigned& hertz)
{
    if (getBool()) {
        statusList->setStatus(rviz::StatusProperty::Ok, "Frequency", QString("%1 Hz").arg(hertz));
    }
}

void InputMessageBase::OnSetStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text)
{
    statusList->setStatus(level, name, text);
}

void InputMessageBase::OnDeleteStatus(const QString& name)
{
    statusList->deleteStatus(name);
}

QVariant InputMessageBase::getViewData(int column, int role) const
{
    if (getBool() && column == 0) {
        const int level = static_cast<int>(statusList->getLevel());
        if (role == Qt::ForegroundRole && (getViewFlags(column) & Qt::ItemIsEnabled) != 0) {
            return rviz::StatusProperty::statusColor(statusList->getLevel());
        }
        if (role == Qt::DecorationRole) {
            return StatusLevelIcon(level);
        }
    }
    return rviz::Property::getViewData(column, role);
}

} // namespace rviz_plugin

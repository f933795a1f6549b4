#ifndef RVIZ_PLUGIN_INPUT_MESSAGE_BASE_H
#define RVIZ_PLUGIN_INPUT_MESSAGE_BASE_H

#include "overlay/ipp_parameters.h"
#include "overlay/message_id.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/bool_property.h>
#include <rviz/properties/status_property.h>
#endif

#include <QIcon>

#include <memory>
#include <vector>

namespace rviz {
class IntProperty;
class RosTopicProperty;
class StatusList;
} // namespace rviz

namespace rviz_plugin {

// One input of a video item in the property tree: a checkbox with "Status", "Topic" and
// "Queue Size" below it. It asks its handler to subscribe while checked and given a topic.
class InputMessageBase : public rviz::BoolProperty {
    Q_OBJECT
public:
    InputMessageBase(const QString& name, bool defaultValue, const QString& description,
                     std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);

    void Initialize(MessageId id, const QString& messageType, const QString& topicDescription,
                    const QString& queueDescription);
    rviz::RosTopicProperty* GetTopicProperty() const { return topicProperty; }
    rviz::StatusList* GetStatusList() const { return statusList; }
    int GetQueueSize() const;
    bool IsEnable() const { return getBool(); }
    QVariant getViewData(int column, int role) const override;

public Q_SLOTS:
    void OnSetStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text);
    void OnDeleteStatus(const QString& name);
    virtual void OnSubscriptionInfoChanged();
    void OnFrequencyChanged(const unsigned& hertz);
    void OnEnableDisplay();
    void OnDisableDisplay();
    void OnValueChanged();

Q_SIGNALS:
    void Subscribe(const QString& topic, int queueSize);
    void UnSubscribe();
    void ClearQueue(rviz_plugin::MessageId id);

protected:
    virtual void InitializeBasicProperties(const QString& messageType, const QString& topicDescription,
                                           const QString& queueDescription);

    void RequestSubscription();

    std::unique_ptr<IppParameters>& parameters;
    rviz::StatusList* statusList = nullptr;
    rviz::RosTopicProperty* topicProperty = nullptr;
    rviz::IntProperty* queueSizeProperty = nullptr;
    MessageId messageId = Image;
};

} // namespace rviz_plugin

#endif

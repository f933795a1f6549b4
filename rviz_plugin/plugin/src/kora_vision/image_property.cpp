#include "image_property.h"

#include "video_control_widget.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/ros_topic_property.h>
#include <rviz/properties/status_list.h>
#endif

namespace rviz_plugin {

ImageProperty::ImageProperty(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : InputMessageBase("Image", true,
                       "Allows users to configure the topic used for subscribing to camera data, and the cache queue "
                       "size of the ROS subscription node.",
                       params, parent)
{
}

void ImageProperty::Initialize(VideoControlWidget* widget)
{
    videoControlWidget = widget;
    if (widget != nullptr) {
        connect(widget, &VideoControlWidget::TopicComboboxTextChanged, this,
                &ImageProperty::OnSendTopicComboboxTextChanged);
    }
    setValue(true);
    InputMessageBase::Initialize(
        Image, "custom/Video",
        "Indicates the topic for subscribing to the custom/Video data, which is obtained after data of the "
        "kora::visual::Image type is converted into ROS messages.",
        "Indicates the cache queue size of the node that subscribes to custom/Video messages in the KORA Vision "
        "plug-in. The default value is 30, and the value range is [5, 10,000].");
    statusList->setStatus(rviz::StatusProperty::Warn, "Data receiving failure",
                          "No data was received in the last 1 second.");
    statusList->setStatus(rviz::StatusProperty::Ok, "Decoder Status", "No decoder is available.");
}

Qt::ItemFlags ImageProperty::getViewFlags(int column) const
{
    // The image cannot be switched off: no checkbox.
    return rviz::Property::getViewFlags(column) & ~Qt::ItemIsUserCheckable;
}

QVariant ImageProperty::getViewData(int column, int role) const
{
    if (column == 1 && (role == Qt::CheckStateRole || role == Qt::DisplayRole)) {
        return QVariant();
    }
    return InputMessageBase::getViewData(column, role);
}

void ImageProperty::OnSubscriptionInfoChanged()
{
    if (videoControlWidget != nullptr) {
        videoControlWidget->SetComboboxCurrentText(topicProperty->getTopic());
    }
    Q_EMIT SubscriptionInfoChanged(topicProperty->getTopic());
    InputMessageBase::OnSubscriptionInfoChanged();
}

void ImageProperty::OnSendTopicComboboxTextChanged(const QString& text)
{
    if (topicProperty->getTopic() != text) {
        topicProperty->setString(text);
    }
}

} // namespace rviz_plugin

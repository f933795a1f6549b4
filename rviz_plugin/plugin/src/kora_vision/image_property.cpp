#include "image_property.h"

#include "foundation/config_load_guard.h"

#include "decoder_property.h"
#include "video_control_widget.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/bool_property.h>
#include <rviz/properties/enum_property.h>
#include <rviz/properties/int_property.h>
#include <rviz/properties/ros_topic_property.h>
#include <rviz/properties/status_list.h>
#endif

namespace rviz_plugin {

namespace {
enum CroppingType { Zoom = 0, Free = 1 };
enum CroppingSide { Top = 0, Down = 1, Left = 2, Right = 3 };
constexpr int maxEdgePercentage = 40;
} // namespace

ImageProperty::ImageProperty(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : InputMessageBase("Image", true,
                       "Allows users to configure the topic used for subscribing to camera data, and the cache queue "
                       "size of the ROS subscription node.",
                       params, parent)
{
}

ImageProperty::~ImageProperty() = default;

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

namespace rviz_plugin {

void ImageProperty::InitializeBasicProperties(const QString& messageType, const QString& topicDescription,
                                              const QString& queueDescription)
{
    InputMessageBase::InitializeBasicProperties(messageType, topicDescription, queueDescription);
    // The decoder choice stands before "Topic".
    decoderProperty = std::make_unique<DecoderProperty>(this, topicProperty->rowNumberInParent());
    croppingProperty = new rviz::BoolProperty("Cropping", false, "Allows you to crop the image to adjust its display.",
                                              this, SLOT(OnCroppingChange()), this);
    croppingProperty->setDisableChildrenIfFalse(true);
    croppingTypeProperty = new CheckedEnumProperty(
        "Cropping Type", "Free",
        "The way an image is cropped. Currently, there are two types of cropping. One is Free, in which the percentage "
        "of pixels on each edge of the image can be cropped as needed. The other is Zoom, in which the edge of the "
        "image is cropped according to a preset proportion. In this mode, the proportion of the image remains "
        "unchanged before and after the cropping, and the image seems only scaled in.",
        croppingProperty, SLOT(OnZoomChange()), this);
    croppingTypeProperty->AddOption("Zoom", Zoom);
    croppingTypeProperty->AddOption("Free", Free);
    zoomFactorProperty = new rviz::IntProperty(
        "Zoom Factor(%)", minZoomFactor,
        "Scale, by which you can adjust the number of pixels that are cropped at the four edges of the image. The "
        "length and width of the cropped image is the reciprocal of the preset proportion. For example, if Zoom "
        "Factor is set to 200%, the length and width of the cropped image becomes 1/2 (100%/200%) of that of the "
        "original image. The value range of Zoom Factor is [100, 200]. ",
        croppingProperty, SLOT(OnZoomFactorChange()), this);
    zoomFactorProperty->setMin(minZoomFactor);
    zoomFactorProperty->setMax(maxZoomFactor);
    topCroppingProperty =
        AddEdgeProperty("Top(%)", "Percentage of pixels cropped at the top edge.", SLOT(OnTopCroppingChange()));
    downCroppingProperty =
        AddEdgeProperty("Down(%)", "Percentage of pixels cropped at the bottom edge.", SLOT(OnDownCroppingChange()));
    leftCroppingProperty =
        AddEdgeProperty("Left(%)", "Percentage of pixels cropped at the left edge.", SLOT(OnLeftCroppingChange()));
    rightCroppingProperty =
        AddEdgeProperty("Right(%)", "Percentage of pixels cropped at the right edge.", SLOT(OnRightCroppingChange()));

}

rviz::IntProperty* ImageProperty::AddEdgeProperty(const QString& name, const QString& description, const char* slot)
{
    auto* edge = new rviz::IntProperty(name, 0, description, croppingProperty, slot, this);
    edge->setMin(0);
    edge->setMax(maxEdgePercentage);
    return edge;
}

void ImageProperty::OnVisibilityStatusChanged(bool visible)
{
    if (visible) {
        croppingProperty->setBool(false);
        Q_EMIT SendCroppingStatus(false);
    }
}

void ImageProperty::OnCroppingChange()
{
    Q_EMIT SendCroppingStatus(croppingProperty->getBool());
}

void ImageProperty::OnZoomChange()
{
    const bool zoom = croppingTypeProperty->getOptionInt() == Zoom;
    zoomFactorProperty->setHidden(!zoom);
    for (rviz::IntProperty* edge :
         {topCroppingProperty, downCroppingProperty, leftCroppingProperty, rightCroppingProperty}) {
        edge->setHidden(zoom);
    }
    Q_EMIT SendCroppingType(zoom);
}

void ImageProperty::OnZoomFactorChange()
{
    Q_EMIT SendZoomFactor(zoomFactorProperty->getInt());
}

void ImageProperty::OnTopCroppingChange()
{
    Q_EMIT SendCroppingPercentage(topCroppingProperty->getInt(), Top);
}

void ImageProperty::OnDownCroppingChange()
{
    Q_EMIT SendCroppingPercentage(downCroppingProperty->getInt(), Down);
}

void ImageProperty::OnLeftCroppingChange()
{
    Q_EMIT SendCroppingPercentage(leftCroppingProperty->getInt(), Left);
}

void ImageProperty::OnRightCroppingChange()
{
    Q_EMIT SendCroppingPercentage(rightCroppingProperty->getInt(), Right);
}

} // namespace rviz_plugin

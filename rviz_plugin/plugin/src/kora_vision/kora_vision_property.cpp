#include "kora_vision_property.h"

#include "image_property.h"
#include "image_render.h"
#include "ipp_node.h"
#include "ipp_parameters.h"
#include "non_interactive_render_panel.h"
#include "topic_combobox.h"
#include "video_control_widget.h"
#include "vision_name.h"
#include "vision_property.h"

#include "decoder_switch/video_handler.h"
#include "foundation/memory_exception.h"

#ifndef Q_MOC_RUN
#include <rviz/display_context.h>
#include <rviz/properties/ros_topic_property.h>
#include <sensor_msgs/CameraInfo.h>
#endif

#include <new>

namespace rviz_plugin {

KoraVisionProperty::KoraVisionProperty(const QString& name, const QString& description, rviz::Property* parent)
    : rviz::Property(name, QVariant(), description, parent)
{
}

// Members go in reverse order: the video handler detaches from its decoder before the overlay node
// and the renderer it feeds.
KoraVisionProperty::~KoraVisionProperty() = default;

void KoraVisionProperty::Initialize(VideoControlWidget* videoItem, rviz::DisplayContext* context,
                                    rviz::Display* display, Ogre::SceneNode* /*sceneNode*/,
                                    Ogre::SceneManager* sceneManager)
{
    std::set_new_handler(Orsa::HandleMemoryException);
    item = videoItem;
    ippParameters = std::make_unique<IppParameters>();
    {
        std::lock_guard<std::mutex> lock(ippParameters->mutex);
        ippParameters->config.messages[Image].enabled = true;
    }
    visionProperty = std::make_unique<VisionProperty>(ippParameters);
    visionProperty->Initialize(this, videoItem, context, display);
    imageRender = std::make_unique<ImageRender>();
    if (videoItem != nullptr && context != nullptr && sceneManager != nullptr) {
        imageRender->Initialize(context, videoItem->GetRenderPanelWidget(), display, sceneManager,
                                visionProperty->GetVisibleBit());
    }
    ippNode = std::make_unique<IppNode>(ippParameters, imageRender);
    ippNode->Initialize();
    videoHandler = std::make_unique<VideoHandler>(*ippNode, context);
    videoHandler->Initialize();
    InitConnection();
}

void KoraVisionProperty::InitConnection()
{
    qRegisterMetaType<rviz::StatusProperty::Level>("rviz::StatusProperty::Level");
    qRegisterMetaType<MessageId>("MessageId");
    qRegisterMetaType<rviz_plugin::MessageId>("rviz_plugin::MessageId");
    qRegisterMetaType<boost::shared_ptr<const sensor_msgs::CameraInfo>>("sensor_msgs::CameraInfoConstPtr");
    qRegisterMetaType<boost::shared_ptr<const sensor_msgs::CameraInfo>>(
        "boost::shared_ptr<const sensor_msgs::CameraInfo>");

    ImageProperty* image = visionProperty->GetImageProperty();
    connect(image, &InputMessageBase::Subscribe, videoHandler.get(), &VideoHandler::OnSubscribe);
    connect(image, &InputMessageBase::UnSubscribe, videoHandler.get(), &VideoHandler::OnUnsubscribe);
    connect(videoHandler.get(), &VideoHandler::RequestDisplayReset, this, &KoraVisionProperty::ResetDisplay);
    connect(videoHandler.get(), &VideoHandler::RequestDisplayRenderContext, this, &KoraVisionProperty::RenderContext);
    connect(videoHandler.get(), &VideoHandler::ChangeTopicName, this, &KoraVisionProperty::UpdateVisionName);
    connect(videoHandler.get(), &VideoHandler::SetStatus, image, &InputMessageBase::OnSetStatus);
    connect(videoHandler.get(), &VideoHandler::DeleteStatus, image, &InputMessageBase::OnDeleteStatus);
    connect(imageRender.get(), &ImageRender::SendRenderStatus, image, &InputMessageBase::OnSetStatus);
    connect(ippNode.get(), &IppNode::ImageQueueStatusChanged, image, &InputMessageBase::OnSetStatus);
    connect(this, &KoraVisionProperty::EnableDisplay, image, &InputMessageBase::OnEnableDisplay);
    connect(this, &KoraVisionProperty::DisableDisplay, image, &InputMessageBase::OnDisableDisplay);
    connect(this, &KoraVisionProperty::EnableDisplay, ippNode.get(), &IppNode::EnableDisplay);
    connect(this, &KoraVisionProperty::DisableDisplay, ippNode.get(), &IppNode::DisableDisplay);
}

void KoraVisionProperty::Update()
{
    if (imageRender != nullptr) {
        imageRender->UpdateImageDisplay();
    }
}

void KoraVisionProperty::SetTopic(const QString& topic, const QString& datatype)
{
    if (datatype != TopicCombobox::videoDataType || visionProperty == nullptr) {
        return;
    }
    visionProperty->GetImageProperty()->GetTopicProperty()->setString(topic);
}

void KoraVisionProperty::SetVisionName(const QString& name)
{
    visionName = name;
    setName(name);
}

void KoraVisionProperty::UpdateVisionName(const QString& topic)
{
    const QString name = ReplaceVisionTopic(visionName, topic);
    if (name != visionName) {
        SetVisionName(name);
    }
}

void KoraVisionProperty::ClearImageDisplay()
{
    if (imageRender != nullptr) {
        imageRender->Clear();
    }
}

void KoraVisionProperty::OnEnable()
{
    if (imageRender != nullptr) {
        imageRender->SetRenderWindowState(true);
    }
    Q_EMIT EnableDisplay();
}

void KoraVisionProperty::OnDisable()
{
    if (imageRender != nullptr) {
        imageRender->SetRenderWindowState(false);
        imageRender->Clear();
    }
    Q_EMIT DisableDisplay();
}

void KoraVisionProperty::ResetDisplay()
{
    Q_EMIT ResetDisplaySignal();
}

void KoraVisionProperty::RenderContext()
{
    Q_EMIT RenderContextSignal();
}

QVariant KoraVisionProperty::getViewData(int column, int role) const
{
    if (role == Qt::DisplayRole && column == 0) {
        return visionName;
    }
    if (role == Qt::DisplayRole && column == 1) {
        return QString();
    }
    if (role == Qt::ForegroundRole) {
        return QBrush(defaultQColor);
    }
    return rviz::Property::getViewData(column, role);
}

void KoraVisionProperty::load(const rviz::Config& config)
{
    rviz::Property::load(config);
    if (ippParameters != nullptr) {
        {
            std::lock_guard<std::mutex> lock(ippParameters->mutex);
            ippParameters->configChanged = true;
        }
        ippNode->RefreshConfig();
    }
}

} // namespace rviz_plugin

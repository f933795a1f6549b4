#include "kora_vision_property.h"

#include "decoder_property.h"
#include "image_property.h"
#include "image_render.h"
#include "non_interactive_render_panel.h"
#include "topic_combobox.h"
#include "video_control_widget.h"
#include "vision_property.h"

#include "decoder_switch/video_handler.h"
#include "foundation/memory_exception.h"
#include "foundation/rviz_helpers.h"
#include "kora_vision_logic/vision_name.h"
#include "overlay/frequency_tool.h"
#include "overlay/ipp_node.h"
#include "overlay/ipp_parameters.h"
#include "overlay/perception_message_handlers.h"
#include "overlay/running_status_tool.h"

#ifndef Q_MOC_RUN
#include <rviz/display_context.h>
#include <rviz/properties/ros_topic_property.h>
#include <rviz/properties/status_list.h>
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
    ippNode = std::make_unique<IppNode>(ippParameters, imageRender.get());
    ippNode->Initialize();
    frequencyTool = std::make_unique<FrequencyTool>(ippParameters->messageIds);
    frequencyTool->Start();
    runningStatusTool = std::make_unique<RunningStatusTool>();
    runningStatusTool->Start();
    videoHandler = std::make_unique<VideoHandler>(*ippNode, context);
    videoHandler->Initialize();
    objectArrayHandler = std::make_unique<ObjectArrayMessageHandler>();
    imageRectangleArrayHandler = std::make_unique<ImageRectangleArrayMessageHandler>();
    imageLineArrayHandler = std::make_unique<ImageLineArrayMessageHandler>();
    imageFreespaceHandler = std::make_unique<ImageFreespaceMessageHandler>();
    semanticSegmentationHandler = std::make_unique<SemanticSegmentationMessageHandler>();
    markerArrayHandler = std::make_unique<MarkerArrayMessageHandler>();
    InitConnection();
    InitPerceptionConnection();
    InitStatusConnection();
    visionProperty->GetImageProperty()->GetDecoderProperty()->UpdateDecoderSelectionMode();
}

template <typename Handler, typename Slot>
void KoraVisionProperty::ConnectInput(MessageId id, Handler* handler, Slot receive)
{
    InputMessageBase* input = visionProperty->GetInputProperty(id);
    handler->Initialize();
    connect(input, &InputMessageBase::Subscribe, handler, &MessageHandler::OnSubscribe);
    connect(input, &InputMessageBase::UnSubscribe, handler, &MessageHandler::OnUnsubscribe);
    connect(input, &InputMessageBase::ClearQueue, ippNode.get(), &IppNode::OnClearQueue);
    connect(handler, &MessageHandler::SetStatus, input, &InputMessageBase::OnSetStatus);
    connect(handler, &MessageHandler::DeleteStatus, input, &InputMessageBase::OnDeleteStatus);
    connect(handler, &MessageHandler::RequestDisplayReset, this, &KoraVisionProperty::ResetDisplay);
    connect(handler, &MessageHandler::RequestDisplayRenderContext, this, &KoraVisionProperty::RenderContext);
    connect(handler, &Handler::SendMsg, ippNode.get(), receive);
    connect(this, &KoraVisionProperty::EnableDisplay, input, &InputMessageBase::OnEnableDisplay);
    connect(this, &KoraVisionProperty::DisableDisplay, input, &InputMessageBase::OnDisableDisplay);
}

void KoraVisionProperty::InitPerceptionConnection()
{
    ConnectInput(Objects, objectArrayHandler.get(), &IppNode::OnSendObjectArray);
    ConnectInput(TrafficLights, imageRectangleArrayHandler.get(), &IppNode::OnSendImgRectArray);
    ConnectInput(RoadLines, imageLineArrayHandler.get(), &IppNode::OnSendImgLineArray);
    ConnectInput(Freespace, imageFreespaceHandler.get(), &IppNode::OnSendImgFreespace);
    ConnectInput(SemanticSegmentation, semanticSegmentationHandler.get(), &IppNode::OnSendSemanticSegmentation);
    ConnectInput(MarkerArray, markerArrayHandler.get(), &IppNode::OnSendMarkerArray);

    // Queue and drawing statuses come from the overlay thread; the connections queue them.
    IppNode* node = ippNode.get();
    const auto statusTo = [this](MessageId id) { return visionProperty->GetInputProperty(id); };
    connect(node, &IppNode::ObjectArrayQueueStatusChanged, statusTo(Objects), &InputMessageBase::OnSetStatus);
    connect(node, &IppNode::ImageRectangleArrayQueueStatusChanged, statusTo(TrafficLights),
            &InputMessageBase::OnSetStatus);
    connect(node, &IppNode::ImageLineArrayQueueStatusChanged, statusTo(RoadLines), &InputMessageBase::OnSetStatus);
    connect(node, &IppNode::ImageFreespaceQueueStatusChanged, statusTo(Freespace), &InputMessageBase::OnSetStatus);
    connect(node, &IppNode::SemanticSegmentationQueueStatusChanged, statusTo(SemanticSegmentation),
            &InputMessageBase::OnSetStatus);
    connect(node, &IppNode::MarkerArrayQueueStatusChanged, statusTo(MarkerArray), &InputMessageBase::OnSetStatus);
    connect(node->GetImageObjectUtilsPtr(), &ImageUtils::ImageObjectUtils::AddObjectArrayStatus, statusTo(Objects),
            &InputMessageBase::OnSetStatus);
    connect(node->GetImageObjectUtilsPtr(), &ImageUtils::ImageObjectUtils::RemoveObjectArrayStatus,
            statusTo(Objects), &InputMessageBase::OnDeleteStatus);
    connect(node->GetImageRectangleUtilsPtr(), &ImageUtils::ImageRectangleUtils::AddImageRectangleArrayStatus,
            statusTo(TrafficLights), &InputMessageBase::OnSetStatus);
    connect(node->GetImageRectangleUtilsPtr(), &ImageUtils::ImageRectangleUtils::RemoveImageRectangleArrayStatus,
            statusTo(TrafficLights), &InputMessageBase::OnDeleteStatus);
    connect(node->GetImageLineUtilsPtr(), &ImageUtils::ImageLineUtils::AddImageLineArrayStatus, statusTo(RoadLines),
            &InputMessageBase::OnSetStatus);
    connect(node->GetImageLineUtilsPtr(), &ImageUtils::ImageLineUtils::RemoveImageLineArrayStatus,
            statusTo(RoadLines), &InputMessageBase::OnDeleteStatus);
    connect(node->GetImageFreespaceUtilsPtr(), &ImageUtils::ImageFreespaceUtils::AddImageFreespaceStatus,
            statusTo(Freespace), &InputMessageBase::OnSetStatus);
    connect(node->GetImageFreespaceUtilsPtr(), &ImageUtils::ImageFreespaceUtils::RemoveImageFreespaceStatus,
            statusTo(Freespace), &InputMessageBase::OnDeleteStatus);
    connect(node->GetImageSemanticSegmentationUtils(),
            &ImageUtils::ImageSemanticSegmentationUtils::AddImageSemanticSegmentationStatus,
            statusTo(SemanticSegmentation), &InputMessageBase::OnSetStatus);
    connect(node->GetImageSemanticSegmentationUtils(),
            &ImageUtils::ImageSemanticSegmentationUtils::RemoveImageSemanticSegmentationStatus,
            statusTo(SemanticSegmentation), &InputMessageBase::OnDeleteStatus);
    connect(node->GetMarkerArrayUtilsPtr(), &ImageUtils::MarkerArrayUtils::AddMarkerArrayStatus,
            statusTo(MarkerArray), &InputMessageBase::OnSetStatus);
    connect(node->GetMarkerArrayUtilsPtr(), &ImageUtils::MarkerArrayUtils::RemoveMarkerArrayStatus,
            statusTo(MarkerArray), &InputMessageBase::OnDeleteStatus);
    connect(imageRender.get(), &ImageRender::UpdateVisibilityProperty, visionProperty.get(),
            &VisionProperty::OnUpdateVisibilityProperty);
}

void KoraVisionProperty::InitStatusConnection()
{
    IppNode* node = ippNode.get();
    FrequencyTool* frequency = frequencyTool.get();
    RunningStatusTool* running = runningStatusTool.get();
    connect(frequency, &FrequencyTool::ProcessingTimeChanged, visionProperty.get(),
            &VisionProperty::UpdateSingleFrameProcessingTime);
    connect(frequency, &FrequencyTool::DetectedPerformanceProblem, running,
            &RunningStatusTool::OnDetectedPerformanceProblem);
    const auto input = [this](MessageId id) { return visionProperty->GetInputProperty(id); };
    connect(frequency, &FrequencyTool::ImageFrequencyChanged, input(Image), &InputMessageBase::OnFrequencyChanged);
    connect(frequency, &FrequencyTool::ObjectArrayFrequencyChanged, input(Objects),
            &InputMessageBase::OnFrequencyChanged);
    connect(frequency, &FrequencyTool::ImageRectangleArrayFrequencyChanged, input(TrafficLights),
            &InputMessageBase::OnFrequencyChanged);
    connect(frequency, &FrequencyTool::ImageLineArrayFrequencyChanged, input(RoadLines),
            &InputMessageBase::OnFrequencyChanged);
    connect(frequency, &FrequencyTool::ImageFreespaceFrequencyChanged, input(Freespace),
            &InputMessageBase::OnFrequencyChanged);
    connect(frequency, &FrequencyTool::ImageSemanticSegmentationFrequencyChanged, input(SemanticSegmentation),
            &InputMessageBase::OnFrequencyChanged);
    connect(frequency, &FrequencyTool::MarkerArrayFrequencyChanged, input(MarkerArray),
            &InputMessageBase::OnFrequencyChanged);
    connect(node, &IppNode::MessageReceived, frequency, &FrequencyTool::OnMessageReceived);
    connect(node, &IppNode::DetectedSingleFrameProcessingTime, frequency,
            &FrequencyTool::OnDetectedSingleFrameProcessingTime);
    connect(node, &IppNode::DetectedQueueFull, running, &RunningStatusTool::OnDetectedQueueFull);
    connect(node, &IppNode::DetectedDiscardPerceptionData, running,
            &RunningStatusTool::OnDetectedDiscardPerceptionData);
    connect(node, &IppNode::DetectedDiscardImageData, running, &RunningStatusTool::OnDetectedDiscardImageData);
    connect(node, &IppNode::DetectedDataSend, running, &RunningStatusTool::OnDetectedDataSend);
    connect(node, &IppNode::DetectedQueueEmpty, running, &RunningStatusTool::OnDetectedQueueEmpty);
    connect(running, &RunningStatusTool::RunningStatusChanged, visionProperty.get(), &VisionProperty::SetGlobalStatus);
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
    DecoderProperty* decoder = image->GetDecoderProperty();
    connect(decoder, &DecoderProperty::SendDecoderSelectionMode, videoHandler.get(),
            &VideoHandler::OnSendDecoderSelectionMode);
    connect(decoder, &DecoderProperty::SendDecoderInformation, videoHandler.get(),
            &VideoHandler::OnSendDecoderInformation);
    connect(videoHandler.get(), &VideoHandler::ChangeDecoderSelectionInternal, decoder,
            &DecoderProperty::OnChangeDecoderSelectionInternal);
    connect(videoHandler.get(), &VideoHandler::RequestDisplayReset, this, &KoraVisionProperty::ResetDisplay);
    connect(videoHandler.get(), &VideoHandler::RequestDisplayRenderContext, this, &KoraVisionProperty::RenderContext);
    connect(videoHandler.get(), &VideoHandler::ChangeTopicName, this, &KoraVisionProperty::UpdateVisionName);
    connect(videoHandler.get(), &VideoHandler::SetStatus, image, &InputMessageBase::OnSetStatus);
    connect(videoHandler.get(), &VideoHandler::DeleteStatus, image, &InputMessageBase::OnDeleteStatus);
    connect(imageRender.get(), &ImageRender::SendRenderStatus, image, &InputMessageBase::OnSetStatus);
    connect(image, &ImageProperty::SendCroppingStatus, imageRender.get(), &ImageRender::OnSendCroppingStatus);
    connect(image, &ImageProperty::SendCroppingType, imageRender.get(), &ImageRender::OnSendCroppingType);
    connect(image, &ImageProperty::SendZoomFactor, imageRender.get(), &ImageRender::OnSendZoomFactor);
    connect(image, &ImageProperty::SendCroppingPercentage, imageRender.get(),
            &ImageRender::OnSendCroppingPercentage);
    connect(visionProperty.get(), &VisionProperty::SendVisibilityStatus, imageRender.get(),
            &ImageRender::OnSendVisibilityStatus);
    connect(videoHandler.get(), &VideoHandler::UpdateCameraInfo, imageRender.get(), &ImageRender::OnUpdateCameraInfo);
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
    const int level = GetGlobalStatusLevel();
    if (role == Qt::ForegroundRole) {
        return QBrush(level == rviz::StatusProperty::Ok
                          ? defaultQColor
                          : rviz::StatusProperty::statusColor(static_cast<rviz::StatusProperty::Level>(level)));
    }
    if (role == Qt::DecorationRole && column == 0 && level != rviz::StatusProperty::Ok) {
        return StatusLevelIcon(level);
    }
    return rviz::Property::getViewData(column, role);
}

int KoraVisionProperty::GetGlobalStatusLevel() const
{
    if (visionProperty == nullptr || visionProperty->GetGlobalStatusList() == nullptr) {
        return rviz::StatusProperty::Ok;
    }
    return visionProperty->GetGlobalStatusList()->getLevel();
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

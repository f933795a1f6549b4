#include "vision_property.h"

#include "base_display_effects.h"
#include "base_setting_property.h"
#include "image_property.h"

#ifndef Q_MOC_RUN
#include <rviz/bit_allocator.h>
#include <rviz/display_context.h>
#include <rviz/properties/display_group_visibility_property.h>
#include <rviz/properties/int_property.h>
#include <rviz/properties/status_list.h>
#endif

namespace rviz_plugin {

namespace {
constexpr int defaultSyncQueueSize = 30;
constexpr int minSyncQueueSize = 5;
constexpr int maxSyncQueueSize = 10000;

struct InputText {
    MessageId id;
    const char* name;
    const char* description;
    const char* messageType;
    const char* topicDescription;
};

// The perception inputs, in the order of the tree.
const InputText perceptionInputs[] = {
    {Objects, "Objects",
     "Indicates object information, including the subscription configuration and status of object messages, the "
     "Value setting for each type of object, and the recognition result display effects. The latter includes the "
     "displayed object type and color of the rectangle or polygon that identifies an object. If users deselect "
     "Objects, the images will not display the recognition result.",
     "custom/ObjectArray",
     "Indicates the topic for subscribing to the custom/ObjectArray data, which is obtained after data of the "
     "kora::visual::ObjectArray type is converted into ROS messages."},
    {TrafficLights, "Traffic Lights",
     "Indicates traffic light information, including the subscription configuration and status of traffic light "
     "messages, the Value setting for each type of traffic light, and the recognition result display effects. The "
     "latter includes the displayed traffic light type and color of the rectangle that identifies a traffic light. "
     "If users deselect Traffic Lights, the images will not display the recognition result.",
     "custom/ImageRectangleArray",
     "Indicates the topic for subscribing to the custom/ImageRectangleArray data, which is obtained after data of the "
     "kora::visual::ImageRectangleArray type is converted into ROS messages."},
    {RoadLines, "Road Lines",
     "Indicates road line information, including the subscription configuration and status of road line messages, "
     "the Value setting for each type of road line, and the recognition result display effects. The latter includes "
     "the line type and color used in the recognition result. If users deselect Road Lines, the images will not "
     "display the recognition result.",
     "custom/ImageLineArray",
     "Indicates the topic for subscribing to the custom/ImageLineArray data, which is obtained after data of the "
     "kora::visual::ImageLineArray type is converted into ROS messages."},
    {Freespace, "Freespace",
     "Indicates freespace information, including the subscription configuration and status of freespace messages, "
     "and the recognition result display effects. If users deselect Freespace, the images will not display the "
     "recognition result.",
     "orsa_msgs/ImageFreespace", "Indicates the topic for subscribing to the orsa_msgs/ImageFreespace data."},
    {SemanticSegmentation, "Semantic Segmentation",
     "Indicates semantic segmentation information, including subscription configuration, status of semantic "
     "segmentation messages, and display of the recognition results. If 'Semantic Segmentation' is not selected, "
     "recognition results will not be displayed on the images.",
     "orsa_msgs/SemanticSegmentation", "Indicates the topic for subscribing to the orsa_msgs/SemanticSegmentation data."},
    {MarkerArray, "MarkerArray",
     "Indicates MarkerArray information, including the subscription configuration and status of MarkerArray "
     "messages, and the recognition result display effects. If users deselect MarkerArray, the images will not "
     "display the recognition result.",
     "visualization_msgs/MarkerArray", "Indicates the topic for subscribing to the visualization_msgs/MarkerArray data."},
};
} // namespace

VisionProperty::VisionProperty(std::unique_ptr<IppParameters>& params) : parameters(params) {}

VisionProperty::~VisionProperty()
{
    if (context != nullptr && visibilityBit != 0) {
        context->visibilityBits()->freeBits(visibilityBit);
    }
}

void VisionProperty::Initialize(rviz::Property* parent, VideoControlWidget* item, rviz::DisplayContext* displayContext,
                                rviz::Display* display)
{
    context = displayContext;
    InitializedBasicProperties(parent);
    imageProperty = new ImageProperty(parameters);
    imageProperty->Initialize(item);
    parent->addChild(imageProperty);
    objectProperty = AddInput(parent, Objects);
    imageRectangleProperty = AddInput(parent, TrafficLights);
    imageLineProperty = AddInput(parent, RoadLines);
    imageFreespaceProperty = AddInput(parent, Freespace);
    imageSemanticSegmentationProperty = AddInput(parent, SemanticSegmentation);
    markerArrayProperty = AddInput(parent, MarkerArray);
    InitDisplayEffects();
    if (context != nullptr) {
        visibilityBit = context->visibilityBits()->allocBit();
        overlayProperty = new rviz::DisplayGroupVisibilityProperty(
            visibilityBit, context->getRootDisplayGroup(), display, "Overlay", false, "Overlay 3D objects on the image.",
            parent, SLOT(OnCalibrationStateChange()), this);
    }
    connect(this, &VisionProperty::SendVisibilityStatus, imageProperty, &ImageProperty::OnVisibilityStatusChanged);
    connect(imageProperty, &ImageProperty::SendCroppingStatus, this, &VisionProperty::OnImageCroppingStatusChange);
}

void VisionProperty::InitializedBasicProperties(rviz::Property* parent)
{
    globalStatusList = new rviz::StatusList("Global Status", parent);
    globalStatusList->setDescription("Displays the status of the camera data cache queue in the recognition result "
                                     "overlay module.");
    UpdateSingleFrameProcessingTime(0);
    syncQueueSizeProperty = new rviz::IntProperty(
        "Time Sync Queue Size", defaultSyncQueueSize,
        "Indicates the length of the message caching queue. Message caching queues are used to match message "
        "timestamps. When the cache reaches the upper limit, earlier data will be discarded. The default value is 30, "
        "and the value must be of the int type. The value range is [5, 10,000].",
        parent, SLOT(UpdateSyncQueueSize()), this);
    syncQueueSizeProperty->setMin(minSyncQueueSize);
    syncQueueSizeProperty->setMax(maxSyncQueueSize);
}

InputMessageBase* VisionProperty::AddInput(rviz::Property* parent, MessageId id)
{
    for (const InputText& text : perceptionInputs) {
        if (text.id != id) {
            continue;
        }
        auto* input = new InputMessageBase(text.name, false, text.description, parameters);
        input->Initialize(id, text.messageType, text.topicDescription,
                          QString("Indicates the cache queue size of the node that subscribes to %1 messages in the "
                                  "KORA Vision plug-in. The default value is 30, and the value range is [5, 10,000].")
                              .arg(text.messageType));
        parent->addChild(input);
        input->setDisableChildrenIfFalse(true);
        return input;
    }
    return nullptr;
}

void VisionProperty::InitDisplayEffects()
{
    auto* objectEffects = new ObjectDisplayEffects(parameters, objectProperty);
    objectSetting = new ObjectSettingProperty(parameters, objectEffects);
    objectSetting->InitDefaultValue(DefaultClassificationTexts::objects);
    auto* trafficLightEffects = new ImgRectDisplayEffects(parameters, imageRectangleProperty);
    trafficLightSetting = new ImageRectangleSettingProperty(parameters, trafficLightEffects);
    trafficLightSetting->InitDefaultValue(DefaultClassificationTexts::trafficLights);
    auto* roadLineEffects = new ImgLineDisplayEffects(parameters, imageLineProperty);
    roadLineSetting = new ImageLineSettingProperty(parameters, roadLineEffects);
    roadLineSetting->InitDefaultValue(DefaultClassificationTexts::roadLines);
    new FreespaceDisplayEffects(parameters, imageFreespaceProperty);
    segmentationSetting = new SemanticSegmentationSettingProperty(parameters, imageSemanticSegmentationProperty);
    segmentationSetting->InitDefaultValue(DefaultClassificationTexts::semanticSegmentation);
    new MarkerArrayDisplayEffects(parameters, markerArrayProperty);
}

InputMessageBase* VisionProperty::GetInputProperty(MessageId id) const
{
    switch (id) {
    case Image:
        return imageProperty;
    case Objects:
        return objectProperty;
    case TrafficLights:
        return imageRectangleProperty;
    case RoadLines:
        return imageLineProperty;
    case Freespace:
        return imageFreespaceProperty;
    case SemanticSegmentation:
        return imageSemanticSegmentationProperty;
    case MarkerArray:
        return markerArrayProperty;
    }
    return nullptr;
}

void VisionProperty::SetGlobalStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text)
{
    globalStatusList->setStatus(level, name, text);
}

void VisionProperty::DeleteGlobalStatus(const QString& name)
{
    globalStatusList->deleteStatus(name);
}

void VisionProperty::UpdateSyncQueueSize()
{
    std::lock_guard<std::mutex> lock(parameters->mutex);
    parameters->config.queueSize = static_cast<unsigned>(syncQueueSizeProperty->getInt());
    parameters->configChanged = true;
}

void VisionProperty::UpdateSingleFrameProcessingTime(float milliseconds)
{
    SetGlobalStatus(rviz::StatusProperty::Ok, "Processing Time", QString("%1 ms").arg(milliseconds));
}

void VisionProperty::OnUpdateVisibilityProperty()
{
    if (overlayProperty != nullptr) {
        overlayProperty->update();
    }
}

void VisionProperty::OnCalibrationStateChange()
{
    Q_EMIT SendVisibilityStatus(overlayProperty->getBool());
}

void VisionProperty::OnImageCroppingStatusChange(bool cropping)
{
    if (cropping && overlayProperty != nullptr) {
        overlayProperty->setBool(false);
    }
}

} // namespace rviz_plugin

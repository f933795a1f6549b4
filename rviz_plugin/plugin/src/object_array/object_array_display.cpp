#include "object_array_display.h"

#include "classification_setting_property.h"
#include "object_array_visual.h"
#include "object_info_property.h"

#include "foundation/logger_stream.h"
#include "foundation/memory_exception.h"
#include "scene_3d_logic/msg_checker.h"

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#include <rviz/properties/bool_property.h>
#include <rviz/properties/color_property.h>
#include <rviz/properties/int_property.h>
#include <rviz/properties/vector_property.h>
#endif

#include <algorithm>
#include <new>

namespace rviz_plugin {

namespace {
const char* const logModule = "ObjectArray";
const char* const sizeStatus = "Incorrect objectList size";
} // namespace

ObjectArrayDisplay::ObjectArrayDisplay() = default;

ObjectArrayDisplay::~ObjectArrayDisplay()
{
    // The pooled objects' scene nodes go before the display's node.
    visual.reset();
}

void ObjectArrayDisplay::onInitialize()
{
    std::set_new_handler(Orsa::HandleMemoryException);
    settings = std::make_unique<ObjectArraySettings>();
    msgChecker = std::make_unique<MsgChecker>(*settings, statusSink);
    visual = std::make_unique<ObjectArrayVisual>(*settings, *msgChecker);
    visual->Init(context_, scene_node_);
    InitProperties();
    receiveMonitor = new ReceiveMonitor(this, "No ObjectArray data was received in the last 1 second.",
                                        [this]() { return messages_received_; });
    rviz::MessageFilterDisplay<custom::ObjectArray>::onInitialize();
}

void ObjectArrayDisplay::InitProperties()
{
    InitQueueSizeProperty(queue_size_property_, unreliable_property_);
    cubeProperty = new rviz::BoolProperty("Cuboid", settings->cubeEnabled,
                                          "Displays objects drawn as cuboids based on the objectBoxCenter, "
                                          "objectBoxSize and objectBoxOrientation fields in the 3D display area.",
                                          this, SLOT(OnCubePropertyChanged()));
    polygonProperty = new rviz::BoolProperty(
        "Polygon", settings->polygonEnabled,
        "Displays objects drawn based on the boxPolygon field in the 3D display area.\nNote: The polygon is drawn in "
        "line_list mode. Every two points form a line segment, and the same point is used twice (once to connect to "
        "the previous point and once to connect to the next point). For example, the boxPolygon field contains four "
        "points A, B, C, and D, so the following line segments are drawn: A-B, B-C, C-D, and D-A.",
        this, SLOT(OnPolygonPropertyChanged()));
    velocityProperty = new rviz::BoolProperty("Velocity", settings->velocityEnabled,
                                              "Displays the velocity of each object as an arrow.", this,
                                              SLOT(OnVelocityPropertyChanged()));
    arrowColorProperty = new rviz::ColorProperty("Arrow Color", settings->arrowColor, "The color of the arrows.",
                                                 velocityProperty, SLOT(OnArrowColorPropertyChanged()), this);
    const auto& scale = settings->arrowScale;
    arrowScaleProperty = new rviz::VectorProperty(
        "Arrow Scale", Ogre::Vector3(scale[0], scale[1], scale[2]),
        "Length per m/s (x), width (y) and height (z) of the arrows, each from 0 to 3.", velocityProperty,
        SLOT(OnArrowScalePropertyChanged()), this);
    objectInfoProperty = new ObjectInfoProperty(*settings, this);
    connect(objectInfoProperty, &ObjectInfoProperty::InfoChanged, this, &ObjectArrayDisplay::OnObjectInfoChanged);
    classificationProperty = new ClassificationSettingProperty(*settings, this);
    classificationProperty->InitDefaultValue();
    connect(classificationProperty, &ClassificationSettingProperty::ClassificationChanged, this,
            &ObjectArrayDisplay::OnClassificationChanged);
}

void ObjectArrayDisplay::reset()
{
    rviz::MessageFilterDisplay<custom::ObjectArray>::reset();
    lastMessage.reset();
    if (receiveMonitor != nullptr) {
        receiveMonitor->Reset();
    }
    if (visual) {
        visual->ResetObjectPool();
    }
}

void ObjectArrayDisplay::onEnable()
{
    if (visual) {
        visual->ResetObjectPool();
    }
    rviz::MessageFilterDisplay<custom::ObjectArray>::onEnable();
    ReRender();
}

void ObjectArrayDisplay::updateTopic()
{
    rviz::MessageFilterDisplay<custom::ObjectArray>::updateTopic();
    SetName();
}

void ObjectArrayDisplay::SetName()
{
    setName(DisplayNameWithTopic("ObjectArray", topic_property_->getTopic()));
}

void ObjectArrayDisplay::processMessage(const custom::ObjectArray::ConstPtr& message)
{
    lastMessage = message;
    try {
        visual->SetMessage(message);
        if (message->objectList.size() > settings->maxObjectCount) {
            setStatus(rviz::StatusProperty::Warn, sizeStatus,
                      QString("The objectList's size [%1] is too large, should less than %2.")
                          .arg(message->objectList.size())
                          .arg(settings->maxObjectCount));
        } else {
            deleteStatus(sizeStatus);
        }
    } catch (const std::exception& error) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "Failed to draw an object array: " << error.what();
    }
}

void ObjectArrayDisplay::ReRender()
{
    if (lastMessage && isEnabled()) {
        processMessage(lastMessage);
        context_->queueRender();
    }
}

std::size_t ObjectArrayDisplay::ShownObjectCount() const
{
    return visual ? visual->ShownCount() : 0;
}

void ObjectArrayDisplay::OnCubePropertyChanged()
{
    settings->cubeEnabled = cubeProperty->getBool();
    ReRender();
}

void ObjectArrayDisplay::OnPolygonPropertyChanged()
{
    settings->polygonEnabled = polygonProperty->getBool();
    ReRender();
}

void ObjectArrayDisplay::OnVelocityPropertyChanged()
{
    settings->velocityEnabled = velocityProperty->getBool();
    arrowColorProperty->setReadOnly(!settings->velocityEnabled);
    arrowScaleProperty->setReadOnly(!settings->velocityEnabled);
    ReRender();
}

void ObjectArrayDisplay::OnArrowColorPropertyChanged()
{
    settings->arrowColor = arrowColorProperty->getColor();
    ReRender();
}

void ObjectArrayDisplay::CheckBound(float& value)
{
    value = std::clamp(value, 0.0F, 3.0F);
}

void ObjectArrayDisplay::OnArrowScalePropertyChanged()
{
    const Ogre::Vector3 typed = arrowScaleProperty->getVector();
    std::array<float, 3> scale{typed.x, typed.y, typed.z};
    for (float& component : scale) {
        CheckBound(component);
    }
    settings->arrowScale = scale;
    const Ogre::Vector3 clamped(scale[0], scale[1], scale[2]);
    if (clamped != typed) {
        arrowScaleProperty->setVector(clamped);  // comes back here with the clamped vector
        return;
    }
    ReRender();
}

void ObjectArrayDisplay::OnObjectInfoChanged()
{
    ReRender();
}

void ObjectArrayDisplay::OnClassificationChanged()
{
    ReRender();
}

// The classification node shows its row count beside its name; its name, and so its key, stays
// "Classification Setting".
void ObjectArrayDisplay::load(const rviz::Config& config)
{
    classificationProperty->ClearSettingClassificationItems();
    rviz::MessageFilterDisplay<custom::ObjectArray>::load(config);
    if (!config.mapGetChild("Classification Setting").isValid()) {
        classificationProperty->InitDefaultValue();
    }
    settings->cubeEnabled = cubeProperty->getBool();
    settings->polygonEnabled = polygonProperty->getBool();
    settings->velocityEnabled = velocityProperty->getBool();
    objectInfoProperty->UpdateSettings();
    SetName();
}

} // namespace rviz_plugin

#include "stereo_freespace_display.h"

#include "foundation/heap_settings.h"
#include "foundation/logger_stream.h"
#include "foundation/memory_exception.h"

#ifndef Q_MOC_RUN
#include <rviz/frame_manager.h>
#include <rviz/properties/color_property.h>
#include <rviz/properties/float_property.h>
#include <rviz/properties/int_property.h>
#endif

#include <new>

namespace rviz_plugin {

namespace {
const char* const logModule = "StereoFreespace";
enum CellClass { NonFreespace = 0, Freespace = 1, Unknown = 2 };
} // namespace

StereoFreespaceDisplay::StereoFreespaceDisplay() = default;

StereoFreespaceDisplay::~StereoFreespaceDisplay()
{
    visual.reset();
}

void StereoFreespaceDisplay::onInitialize()
{
    std::set_new_handler(Orsa::HandleMemoryException);
    // A grid and its clouds' vertex buffers are megabytes, made and freed for every message.
    ReturnLargeBuffersToTheSystem();
    rviz::MessageFilterDisplay<orsa_msgs::StereoFreespace>::onInitialize();
    checker = std::make_unique<StereoFreespaceChecker>(statusSink);
    visual = std::make_unique<StereoFreespaceVisual>(colors, *checker);
    visual->Init(scene_node_);
    InitQueueSizeProperty(queue_size_property_, unreliable_property_);

    auto* effects = new rviz::Property("Display Effects", QVariant(), "How the three kinds of cells look.", this);
    const struct {
        CellClass cellClass;
        const char* name;
        const char* slot;
    } classes[] = {{NonFreespace, "Non-Freespace", SLOT(OnNonFreespaceColorChanged())},
                   {Freespace, "Freespace", SLOT(OnFreespaceColorChanged())},
                   {Unknown, "Unknown", SLOT(OnUnknownSpaceColorChanged())}};
    for (const auto& entry : classes) {
        const QColor& color = colors.colors[entry.cellClass];
        colorProperties[entry.cellClass] = new rviz::ColorProperty(
            QString("%1 Color").arg(entry.name), QColor(color.rgb()),
            QString("The color of the %1 cells.").arg(QString(entry.name).toLower()), effects, entry.slot, this);
        auto* alpha = new rviz::FloatProperty(QString("%1 Alpha").arg(entry.name), 1.0F,
                                              QString("The opacity of the %1 cells, from 0 to 1.")
                                                  .arg(QString(entry.name).toLower()),
                                              effects, entry.slot, this);
        alpha->setMin(0.0F);
        alpha->setMax(1.0F);
        alphaProperties[entry.cellClass] = alpha;
    }
    receiveMonitor = new ReceiveMonitor(this, "No StereoFreespace data was received in the last 1 second.",
                                        [this]() { return messages_received_; });
}

void StereoFreespaceDisplay::reset()
{
    rviz::MessageFilterDisplay<orsa_msgs::StereoFreespace>::reset();
    lastMessage.reset();
    if (receiveMonitor != nullptr) {
        receiveMonitor->Reset();
    }
    if (visual) {
        visual->Reset();
    }
}

void StereoFreespaceDisplay::onEnable()
{
    rviz::MessageFilterDisplay<orsa_msgs::StereoFreespace>::onEnable();
    ReRender();
}

void StereoFreespaceDisplay::updateTopic()
{
    rviz::MessageFilterDisplay<orsa_msgs::StereoFreespace>::updateTopic();
    SetName();
}

void StereoFreespaceDisplay::SetName()
{
    setName(DisplayNameWithTopic("StereoFreespace", topic_property_->getTopic()));
}

void StereoFreespaceDisplay::processMessage(const orsa_msgs::StereoFreespace::ConstPtr& message)
{
    lastMessage = message;
    try {
        if (checker->IsInvalidStereoFreespaceData(*message)) {
            return;  // the last good grid stays on the screen
        }
        Ogre::Vector3 position = Ogre::Vector3::ZERO;
        Ogre::Quaternion orientation = Ogre::Quaternion::IDENTITY;
        if (!context_->getFrameManager()->getTransform(message->header, position, orientation)) {
            Orsa::LoggerStream(logModule, Orsa::LogLevel::Warn)
                << "Error transforming from frame '" << message->header.frame_id << "' to frame '"
                << fixed_frame_.toStdString() << "'";
            position = Ogre::Vector3::ZERO;
            orientation = Ogre::Quaternion::IDENTITY;
        }
        scene_node_->setPosition(position);
        scene_node_->setOrientation(orientation);
        visual->SetMessage(*message);
    } catch (const std::exception& error) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "Failed to draw a freespace grid: " << error.what();
    }
}

void StereoFreespaceDisplay::ReRender()
{
    if (lastMessage) {
        processMessage(lastMessage);
        context_->queueRender();
    }
}

void StereoFreespaceDisplay::UpdateColor(int cellClass)
{
    QColor color = colorProperties[cellClass]->getColor();
    color.setAlphaF(static_cast<double>(alphaProperties[cellClass]->getFloat()));
    colors.colors[cellClass] = color;
    ReRender();
}

void StereoFreespaceDisplay::OnFreespaceColorChanged()
{
    UpdateColor(Freespace);
}

void StereoFreespaceDisplay::OnNonFreespaceColorChanged()
{
    UpdateColor(NonFreespace);
}

void StereoFreespaceDisplay::OnUnknownSpaceColorChanged()
{
    UpdateColor(Unknown);
}

} // namespace rviz_plugin

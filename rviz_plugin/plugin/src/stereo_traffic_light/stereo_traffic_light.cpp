#include "stereo_traffic_light.h"

#include "trafficlight_manager.h"

#include "foundation/logger_stream.h"
#include "foundation/memory_exception.h"
#include "scene_3d/display_status_sink.h"

#ifndef Q_MOC_RUN
#include <rviz/frame_manager.h>
#include <rviz/properties/int_property.h>
#endif

#include <new>

namespace rviz_plugin {

namespace {
const char* const logModule = "StereoTrafficLight";
const char* const countStatus = "trafficLights";
} // namespace

StereoTrafficLight::StereoTrafficLight() = default;

StereoTrafficLight::~StereoTrafficLight()
{
    manager.reset();
}

void StereoTrafficLight::onInitialize()
{
    std::set_new_handler(Orsa::HandleMemoryException);
    rviz::MessageFilterDisplay<orsa_msgs::StereoTrafficLightArray>::onInitialize();
    manager = std::make_unique<TrafficlightManager>(scene_manager_, scene_node_);
    InitQueueSizeProperty(queue_size_property_, unreliable_property_);
    receiveMonitor = new ReceiveMonitor(this, "No StereoTrafficLightArray data was received in the last 1 second.",
                                        [this]() { return messages_received_; });
}

void StereoTrafficLight::reset()
{
    rviz::MessageFilterDisplay<orsa_msgs::StereoTrafficLightArray>::reset();
    lastMessage.reset();
    if (receiveMonitor != nullptr) {
        receiveMonitor->Reset();
    }
    if (manager) {
        manager->Reset();
    }
}

void StereoTrafficLight::onDisable()
{
    rviz::MessageFilterDisplay<orsa_msgs::StereoTrafficLightArray>::onDisable();
    lastMessage.reset();
    manager->Reset();
}

void StereoTrafficLight::updateTopic()
{
    rviz::MessageFilterDisplay<orsa_msgs::StereoTrafficLightArray>::updateTopic();
    SetName();
}

void StereoTrafficLight::SetName()
{
    setName(DisplayNameWithTopic("StereoTrafficLight", topic_property_->getTopic()));
}

void StereoTrafficLight::ClearLightErrorStatus()
{
    for (const QString& name : errorStatusNames) {
        deleteStatus(name);
    }
    errorStatusNames.clear();
}

void StereoTrafficLight::SetStereoTrafficLightErrorState(const orsa_msgs::StereoTrafficLight& entry)
{
    for (const auto& status : TrafficLightFieldCheck::ErrorStatuses(entry)) {
        setStatus(rviz::StatusProperty::Error, status.first, status.second);
        errorStatusNames.push_back(status.first);
    }
}

void StereoTrafficLight::processMessage(const orsa_msgs::StereoTrafficLightArray::ConstPtr& message)
{
    lastMessage = message;
    try {
        Ogre::Vector3 position = Ogre::Vector3::ZERO;
        Ogre::Quaternion orientation = Ogre::Quaternion::IDENTITY;
        if (context_->getFrameManager()->getTransform(message->header, position, orientation)) {
            scene_node_->setPosition(position);
            scene_node_->setOrientation(orientation);
        }
        ClearLightErrorStatus();
        if (!TrafficLightFieldCheck::IntersectionNumAvailable(message->trafficLights.size())) {
            setStatus(rviz::StatusProperty::Error, countStatus, "A maximum of 50 intersections can be displayed");
        } else {
            deleteStatus(countStatus);
        }
        const std::size_t checked =
            std::min<std::size_t>(message->trafficLights.size(), TrafficLightFieldCheck::maxIntersections);
        for (std::size_t index = 0; index < checked; ++index) {
            SetStereoTrafficLightErrorState(message->trafficLights[index]);
        }
        manager->DisplayTrafficlight(*message);
    } catch (const std::exception& error) {
        Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "Failed to draw traffic lights: " << error.what();
    }
}

} // namespace rviz_plugin

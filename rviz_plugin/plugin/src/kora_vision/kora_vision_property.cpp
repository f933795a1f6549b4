#include "kora_vision_property.h"

#include "non_interactive_render_panel.h"
#include "topic_combobox.h"
#include "video_control_widget.h"
#include "vision_name.h"

#include "foundation/memory_exception.h"

#ifndef Q_MOC_RUN
#include <OgreCamera.h>
#include <OgreRenderWindow.h>
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>
#include <OgreViewport.h>
#include <rviz/config.h>
#include <rviz/display_context.h>
#endif

#include <new>

namespace rviz_plugin {

namespace {
const char* const topicKey = "Topic";
const Ogre::Vector3 cameraPosition(-3.0F, 0.0F, 2.0F);
const Ogre::ColourValue idleBackground(0.16F, 0.17F, 0.19F);
} // namespace

KoraVisionProperty::KoraVisionProperty(const QString& name, const QString& description, rviz::Property* parent)
    : rviz::Property(name, QVariant(), description, parent)
{
}

KoraVisionProperty::~KoraVisionProperty() = default;

void KoraVisionProperty::Initialize(VideoControlWidget* videoItem, rviz::DisplayContext* context,
                                    rviz::Display* /*display*/, Ogre::SceneNode* /*sceneNode*/,
                                    Ogre::SceneManager* sceneManager)
{
    std::set_new_handler(Orsa::HandleMemoryException);
    item = videoItem;
    if (item == nullptr) {
        return;
    }
    NonInteractiveRenderPanel* panel = item->GetRenderPanelWidget();
    if (context != nullptr && sceneManager != nullptr) {
        // The item's window looks at the scene from its own fixed camera.
        panel->initialize(sceneManager, context);
        panel->setBackgroundColor(idleBackground);
        if (Ogre::Camera* camera = panel->getCamera()) {
            Ogre::SceneNode* node = camera->getParentSceneNode();
            if (node == nullptr) {
                node = sceneManager->getRootSceneNode()->createChildSceneNode();
                node->attachObject(camera);
            }
            node->setFixedYawAxis(true, Ogre::Vector3::UNIT_Z);
            node->setPosition(cameraPosition);
            node->lookAt(Ogre::Vector3::ZERO, Ogre::Node::TS_WORLD);
        }
    }
    connect(item, &VideoControlWidget::TopicComboboxTextChanged, this, &KoraVisionProperty::UpdateVisionName);
}

void KoraVisionProperty::SetTopic(const QString& topic, const QString& datatype)
{
    if (datatype != TopicCombobox::videoDataType || item == nullptr) {
        return;
    }
    item->SetComboboxCurrentText(topic);
}

QString KoraVisionProperty::GetTopic() const
{
    return item == nullptr ? QString() : item->GetTopicCombobox()->currentText();
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

void KoraVisionProperty::SetRenderWindowState(bool active)
{
    if (item == nullptr || item->GetRenderPanelWidget()->getRenderWindow() == nullptr) {
        return;
    }
    item->GetRenderPanelWidget()->getRenderWindow()->setActive(active);
}

void KoraVisionProperty::OnEnable()
{
    SetRenderWindowState(true);
}

void KoraVisionProperty::OnDisable()
{
    SetRenderWindowState(false);
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

void KoraVisionProperty::save(rviz::Config config) const
{
    // Without children the base would store a bare value instead of this item's map.
    if (numChildren() > 0) {
        rviz::Property::save(config);
    }
    config.mapSetValue(topicKey, GetTopic());
}

void KoraVisionProperty::load(const rviz::Config& config)
{
    rviz::Property::load(config);
    QString topic;
    if (item != nullptr && config.mapGetString(topicKey, &topic)) {
        item->SetComboboxCurrentText(topic);
    }
}

} // namespace rviz_plugin

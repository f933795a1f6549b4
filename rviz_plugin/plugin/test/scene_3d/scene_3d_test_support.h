#ifndef RVIZ_PLUGIN_TEST_SCENE_3D_SUPPORT_H
#define RVIZ_PLUGIN_TEST_SCENE_3D_SUPPORT_H

#include <OgreMovableObject.h>
#include <OgreRoot.h>
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>

#include <rviz/display.h>
#include <rviz/properties/status_property.h>

#include <QCoreApplication>
#include <QString>

#include <functional>

#include <optional>
#include <set>
#include <string>

namespace scene_3d_test {

// Attached objects of a type under node (its own included) that are visible.
inline int CountVisible(const Ogre::SceneNode* node, const std::string& type)
{
    int count = 0;
    for (const Ogre::MovableObject* object : node->getAttachedObjects()) {
        count += object->getMovableType() == type && object->isVisible() ? 1 : 0;
    }
    for (const Ogre::Node* child : node->getChildren()) {
        count += CountVisible(static_cast<const Ogre::SceneNode*>(child), type);
    }
    return count;
}

// Visible objects of a type under node that stand nearer than a kilometre to the origin: parked
// markers (invisible and far away) don't count.
inline int CountShownUpdated(const Ogre::SceneNode* node, const std::string& type)
{
    int count = 0;
    for (const Ogre::MovableObject* object : node->getAttachedObjects()) {
        count += object->getMovableType() == type && object->isVisible() &&
                         node->_getDerivedPosition().length() < 1000
                     ? 1
                     : 0;
    }
    for (const Ogre::Node* child : node->getChildren()) {
        count += CountShownUpdated(static_cast<const Ogre::SceneNode*>(child), type);
    }
    return count;
}

inline int CountShown(Ogre::SceneNode* node, const std::string& type)
{
    node->_update(true, false);  // the places of the nodes below, as the next frame will have them
    return CountShownUpdated(node, type);
}

// Every scene object and node of the scene by name: a name is never reused, so a set that stays the
// same over many messages means nothing was made or destroyed.
inline std::set<std::string> SceneObjectNames(Ogre::SceneManager* manager)
{
    std::set<std::string> names;
    for (const std::string type : {"Entity", "ManualObject", "BillboardChain", "MovableText", "BillboardSet"}) {
        for (const auto& entry : manager->getMovableObjects(type)) {
            names.insert(type + ":" + entry.first);
        }
    }
    std::function<void(const Ogre::Node*)> nodes = [&](const Ogre::Node* node) {
        names.insert("node:" + node->getName());
        for (const Ogre::Node* child : node->getChildren()) {
            nodes(child);
        }
    };
    nodes(manager->getRootSceneNode());
    return names;
}

// The text of a display's status entry, if there is one. rviz sets statuses through the event queue.
inline std::optional<QString> StatusText(rviz::Display* display, const QString& name)
{
    QCoreApplication::processEvents();
    for (int index = 0; index < display->numChildren(); ++index) {
        rviz::Property* list = display->childAt(index);
        if (!list->getName().startsWith("Status")) {  // "Status: Ok", "Status: Warn", ...

            continue;
        }
        for (int entry = 0; entry < list->numChildren(); ++entry) {
            auto* status = qobject_cast<rviz::StatusProperty*>(list->childAt(entry));
            if (status != nullptr && status->getName() == name) {
                return status->getValue().toString();
            }
        }
    }
    return std::nullopt;
}

// A child property by name (rviz's own lookup complains about a missing one).
inline rviz::Property* Child(rviz::Property* parent, const QString& name)
{
    for (int index = 0; index < parent->numChildren(); ++index) {
        if (parent->childAt(index)->getName() == name) {
            return parent->childAt(index);
        }
    }
    return nullptr;
}

} // namespace scene_3d_test

#endif

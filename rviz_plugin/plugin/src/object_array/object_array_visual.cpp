#include "object_array_visual.h"

#include "scene_3d_logic/object_array_settings.h"

#ifndef Q_MOC_RUN
#include <OgreSceneNode.h>
#endif

#include <algorithm>

namespace rviz_plugin {

ObjectArrayVisual::ObjectArrayVisual(const ObjectArraySettings& objectSettings, MsgChecker& msgChecker)
    : settings(objectSettings), checker(msgChecker),
      objectPool(
          [this]() {
              auto object = std::make_unique<Object>(&settings, &checker);
              object->Init(context, sceneNode != nullptr ? sceneNode->createChildSceneNode() : nullptr);
              return object;
          },
          initialPoolSize)
{
}

void ObjectArrayVisual::Init(rviz::DisplayContext* displayContext, Ogre::SceneNode* parentNode)
{
    context = displayContext;
    sceneNode = parentNode;
    objectPool.InitDefault();
}

void ObjectArrayVisual::SetMessage(const custom::ObjectArray::ConstPtr& message)
{
    const std::size_t count = std::min<std::size_t>(settings.maxObjectCount, message->objectList.size());
    auto& objects = objectPool.Get(count);
    for (std::size_t index = 0; index < count; ++index) {
        objects[index]->Render(message->objectList[index], static_cast<unsigned int>(index), message->header);
    }
}

void ObjectArrayVisual::ResetObjectPool()
{
    objectPool.Reset();
}

} // namespace rviz_plugin

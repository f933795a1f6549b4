#ifndef RVIZ_PLUGIN_OBJECT_ARRAY_VISUAL_H
#define RVIZ_PLUGIN_OBJECT_ARRAY_VISUAL_H

#include "object.h"

#include "foundation/object_pool.h"

#include <custom/ObjectArray.h>

#include <memory>

namespace rviz_plugin {

// Draws an object array with pooled objects: the first objects of a message up to the maximum count,
// the rest of the pool hidden.
class ObjectArrayVisual {
public:
    static constexpr std::size_t initialPoolSize = 50;

    ObjectArrayVisual(const ObjectArraySettings& settings, MsgChecker& checker);

    void Init(rviz::DisplayContext* context, Ogre::SceneNode* sceneNode);
    void SetMessage(const custom::ObjectArray::ConstPtr& message);
    void ResetObjectPool();
    std::size_t ShownCount() const { return objectPool.GetUsedSize(); }

private:
    const ObjectArraySettings& settings;
    MsgChecker& checker;
    rviz::DisplayContext* context = nullptr;
    Ogre::SceneNode* sceneNode = nullptr;
    ObjectPool<Object> objectPool;
};

} // namespace rviz_plugin

#endif

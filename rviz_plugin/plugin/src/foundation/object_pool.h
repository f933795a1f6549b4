#ifndef RVIZ_PLUGIN_OBJECT_POOL_H
#define RVIZ_PLUGIN_OBJECT_POOL_H

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace rviz_plugin {

// Reuses drawn objects between messages: Get(n) hands out exactly n working objects, creating
// only the shortfall; surplus objects are hidden and kept idle for the next message.
// Object needs a Hide(); the factory makes a new one ready to draw (a scene object makes its scene
// node under the display's node there), so that no object is made or destroyed once the pool is warm.
template <typename Object>
class ObjectPool {
public:
    using Factory = std::function<std::unique_ptr<Object>()>;

    explicit ObjectPool(Factory factory, std::size_t initialPoolSize = 5)
        : initialPoolSize(initialPoolSize), factory(std::move(factory))
    {
    }

    // Creates count idle objects.
    void Init(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            idlePool.push_back(factory());
        }
    }

    void InitDefault() { Init(initialPoolSize); }

    std::size_t GetUsedSize() const { return workingPool.size(); }
    std::size_t GetIdleSize() const { return idlePool.size(); }

    // Hides every working object and makes them all idle.
    void Reset()
    {
        for (auto& object : workingPool) {
            object->Hide();
        }
        Move(workingPool, idlePool, workingPool.size());
    }

    std::vector<std::unique_ptr<Object>>& Get(std::size_t count)
    {
        const std::size_t total = idlePool.size() + workingPool.size();
        if (total < count) {
            Init(count - total);
        }
        if (count <= workingPool.size()) {
            const std::size_t surplus = workingPool.size() - count;
            for (std::size_t i = 0; i < surplus; ++i) {
                workingPool[workingPool.size() - 1 - i]->Hide();
            }
            Move(workingPool, idlePool, surplus);
        } else {
            Move(idlePool, workingPool, count - workingPool.size());
        }
        return workingPool;
    }

private:
    // Takes count objects from the back of source and appends them to destination.
    static void Move(std::vector<std::unique_ptr<Object>>& source, std::vector<std::unique_ptr<Object>>& destination,
                     std::size_t count)
    {
        for (std::size_t i = 0; i < count && !source.empty(); ++i) {
            destination.push_back(std::move(source.back()));
            source.pop_back();
        }
    }

    std::vector<std::unique_ptr<Object>> idlePool;
    std::vector<std::unique_ptr<Object>> workingPool;
    std::size_t initialPoolSize;
    Factory factory;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_CANVAS_POOL_H
#define RVIZ_PLUGIN_CANVAS_POOL_H

#include <sensor_msgs/Image.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace rviz_plugin {

// Overlay canvases (8-bit blue, green, red, alpha) used again once the renderer lets go of them, so
// that a frame neither allocates nor faults in a full-size picture. A canvas comes back with the
// pixels of its last use: the painter clears it unless its first layer covers every pixel. Canvases
// may be released on any thread and after the pool is gone.
class CanvasPool {
public:
    explicit CanvasPool(std::size_t keptCanvases = defaultKeptCanvases);

    // A canvas of width x height; its pixels are left as they were.
    boost::shared_ptr<sensor_msgs::Image> Take(uint32_t width, uint32_t height);
    std::size_t Idle() const;

    static constexpr std::size_t defaultKeptCanvases = 3;
    static constexpr uint32_t bytesPerPixel = 4;

private:
    struct Shelf {
        std::mutex mutex;
        std::size_t capacity = 0;
        std::vector<std::unique_ptr<sensor_msgs::Image>> canvases;
    };
    std::shared_ptr<Shelf> shelf;
};

} // namespace rviz_plugin

#endif

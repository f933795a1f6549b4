#include "canvas_pool.h"

namespace rviz_plugin {

CanvasPool::CanvasPool(std::size_t keptCanvases) : shelf(std::make_shared<Shelf>())
{
    shelf->capacity = keptCanvases;
}

boost::shared_ptr<sensor_msgs::Image> CanvasPool::Take(uint32_t width, uint32_t height)
{
    std::unique_ptr<sensor_msgs::Image> canvas;
    {
        std::lock_guard<std::mutex> lock(shelf->mutex);
        if (!shelf->canvases.empty()) {
            canvas = std::move(shelf->canvases.back());
            shelf->canvases.pop_back();
        }
    }
    if (canvas == nullptr) {
        canvas = std::make_unique<sensor_msgs::Image>();
    }
    canvas->header = std_msgs::Header();
    canvas->width = width;
    canvas->height = height;
    canvas->encoding = "bgra8";
    canvas->is_bigendian = 0;
    canvas->step = width * bytesPerPixel;
    canvas->data.resize(static_cast<std::size_t>(canvas->step) * height);
    // Back on the shelf when the last user lets go, if the shelf is still there and not full.
    std::weak_ptr<Shelf> home = shelf;
    return boost::shared_ptr<sensor_msgs::Image>(canvas.release(), [home](sensor_msgs::Image* released) {
        std::unique_ptr<sensor_msgs::Image> owned(released);
        if (const std::shared_ptr<Shelf> kept = home.lock()) {
            std::lock_guard<std::mutex> lock(kept->mutex);
            if (kept->canvases.size() < kept->capacity) {
                kept->canvases.push_back(std::move(owned));
            }
        }
    });
}

std::size_t CanvasPool::Idle() const
{
    std::lock_guard<std::mutex> lock(shelf->mutex);
    return shelf->canvases.size();
}

} // namespace rviz_plugin

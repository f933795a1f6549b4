#include "image_convert.h"

#include "foundation/logger.h"
#include "frames/yuv_texture_data.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <system_error>

namespace rviz_plugin {

ImageConvert::~ImageConvert()
{
    Stop();
}

bool ImageConvert::Initialize()
{
    std::lock_guard<std::mutex> lock(queueMutex);
    if (running) {
        return true;
    }
    running = true;
    try {
        thread = std::thread(&ImageConvert::ProcessImage, this);
    } catch (const std::system_error&) {
        running = false;
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error,
                                             "Fail to create a new thread for ImageConvert. Release memory and "
                                             "restart Orsa.");
        return false;
    }
    return true;
}

void ImageConvert::Stop()
{
    {
        std::lock_guard<std::mutex> lock(queueMutex);
        running = false;
    }
    queueCondition.notify_all();
    if (thread.joinable()) {
        thread.join();
    }
}

void ImageConvert::SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame)
{
    {
        std::lock_guard<std::mutex> lock(queueMutex);
        if (!queue.empty() && queue.back()->GetFrameHeader().stamp > frame->GetFrameHeader().stamp) {
            queue.clear();
        }
        if (queue.size() >= queueLimit) {
            queue.pop_front();
        }
        queue.push_back(frame);
    }
    queueCondition.notify_one();
}

std::size_t ImageConvert::GetQueueSize()
{
    std::lock_guard<std::mutex> lock(queueMutex);
    return queue.size();
}

void ImageConvert::ProcessImage()
{
    std::unique_lock<std::mutex> lock(queueMutex);
    while (true) {
        queueCondition.wait(lock, [this]() { return !running || !queue.empty(); });
        if (!running) {
            return;
        }
        std::shared_ptr<YuvTextureData> frame = std::move(queue.front());
        queue.pop_front();
        lock.unlock();
        {
            // As the renderer's texture: a picture arriving while one is pending is dropped.
            std::lock_guard<std::mutex> imageLock(imageMutex);
            if (pending == nullptr) {
                pending = std::move(frame);
            }
        }
        lock.lock();
    }
}

bool ImageConvert::UpdateImage()
{
    std::lock_guard<std::mutex> lock(imageMutex);
    if (pending == nullptr) {
        return false;
    }
    const AVFrame* frame = pending->GetAvFrame();
    // Converted at the picture's own size, as for a window at least as large as the picture.
    core.windowWidth = frame != nullptr ? static_cast<unsigned>(frame->width) : 0;
    core.windowHeight = frame != nullptr ? static_cast<unsigned>(frame->height) : 0;
    std_msgs::Header header;
    const bool converted = pending->ConvertToTextureImage(buffer, header, core);
    pending.reset();
    return converted;
}

} // namespace rviz_plugin

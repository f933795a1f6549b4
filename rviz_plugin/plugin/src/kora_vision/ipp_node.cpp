#include "ipp_node.h"

#include "image_render.h"
#include "yuv_texture_data.h"

#include "foundation/logger.h"

#include <system_error>

namespace rviz_plugin {

std::atomic<int> IppNode::ippCounter{0};

IppNode::IppNode(const std::unique_ptr<IppParameters>& params, const std::unique_ptr<ImageRender>& render)
    : ippNodeNo(ippCounter), parameters(params), imageRender(render)
{
}

IppNode::~IppNode()
{
    {
        std::lock_guard<std::mutex> lock(mutex);
        stopRequested = true;
        running = false;
    }
    condition.notify_all();
    if (thread.joinable()) {
        thread.join();
    }
}

void IppNode::Initialize()
{
    ++ippCounter;
    {
        std::lock_guard<std::mutex> lock(mutex);
        running = true;
    }
    RefreshConfig();
    try {
        thread = std::thread(&IppNode::ProcessImage, this);
    } catch (const std::system_error&) {
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error,
                                             "Fail to create a new thread for IppNode. Release memory and restart "
                                             "Orsa.");
    }
}

void IppNode::RefreshConfig()
{
    if (parameters == nullptr) {
        return;
    }
    std::lock_guard<std::mutex> lock(mutex);
    std::lock_guard<std::mutex> parametersLock(parameters->mutex);
    parameters->configChanged = true;
    TakeConfigIfChanged();
}

void IppNode::TakeConfigIfChanged()
{
    if (parameters->configChanged) {
        config = parameters->config;
        parameters->configChanged = false;
    }
}

std::size_t IppNode::GetImageQueueSize()
{
    std::lock_guard<std::mutex> lock(mutex);
    return imageQueue.size();
}

void IppNode::EnableDisplay()
{
    displayEnabled = true;
}

void IppNode::DisableDisplay()
{
    displayEnabled = false;
    std::lock_guard<std::mutex> lock(mutex);
    imageQueue.clear();
}

void IppNode::SaveImageToCache(const std::shared_ptr<YuvTextureData>& frame)
{
    if (frame == nullptr) {
        return;
    }
    std::size_t size = 0;
    unsigned limit = 0;
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (!displayEnabled) {
            imageQueue.clear();
            return;
        }
        limit = config.queueSize;
        // A stream that jumped back in time (a restarted bag) starts the queue anew.
        if (!imageQueue.empty() && imageQueue.back()->GetFrameHeader().stamp > frame->GetFrameHeader().stamp) {
            imageQueue.clear();
        }
        if (imageQueue.size() >= limit && !imageQueue.empty()) {
            imageQueue.pop_front();
        }
        imageQueue.push_back(frame);
        size = imageQueue.size();
    }
    Q_EMIT MessageReceived(Image);
    if (limit > size) {
        Q_EMIT ImageQueueStatusChanged(rviz::StatusProperty::Ok, "Queue Status", "Queue is normal.");
    } else {
        Q_EMIT DetectedQueueFull();
        Q_EMIT ImageQueueStatusChanged(rviz::StatusProperty::Warn, "Queue Status", "Queue full.");
    }
    condition.notify_one();
}

void IppNode::ProcessImage()
{
    for (;;) {
        std::shared_ptr<YuvTextureData> image;
        {
            std::unique_lock<std::mutex> lock(mutex);
            condition.wait(lock, [this]() { return stopRequested || !imageQueue.empty(); });
            if (stopRequested) {
                return;
            }
            image = imageQueue.front();
            imageQueue.pop_front();
        }
        if (displayEnabled && imageRender != nullptr) {
            imageRender->UpdateImageTexture(image, nullptr);
            Q_EMIT DetectedDataSend();
        }
    }
}

} // namespace rviz_plugin

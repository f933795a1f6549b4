#include "image_texture.h"

#include "foundation/logger.h"

#include <OgreDataStream.h>
#include <OgreException.h>
#include <OgreHardwarePixelBuffer.h>
#include <OgreResourceGroupManager.h>
#include <OgreTextureManager.h>

#include <atomic>

namespace rviz_plugin {

namespace {
std::atomic<unsigned> textureCounter{0};
const char* const idlePicture = "no_image.png";
} // namespace

ImageTexture::ImageTexture()
{
    emptyImage.load(idlePicture, Ogre::ResourceGroupManager::DEFAULT_RESOURCE_GROUP_NAME);
    width = static_cast<unsigned>(emptyImage.getWidth());
    height = static_cast<unsigned>(emptyImage.getHeight());
    texture = Ogre::TextureManager::getSingleton().loadImage(
        "KORAImageTexture" + std::to_string(textureCounter++), Ogre::ResourceGroupManager::DEFAULT_RESOURCE_GROUP_NAME,
        emptyImage, Ogre::TEX_TYPE_2D, 0);
}

ImageTexture::~ImageTexture()
{
    if (texture) {
        Ogre::TextureManager::getSingleton().remove(texture);
    }
}

void ImageTexture::AddMessage(const std::shared_ptr<TextureData>& data, unsigned windowWidth, unsigned windowHeight)
{
    std::lock_guard<std::mutex> lock(mutex);
    if (newImage) {
        return;  // the previous frame is still pending: this one is dropped
    }
    currentData = data;
    transformCore.windowWidth = windowWidth;
    transformCore.windowHeight = windowHeight;
    newImage = true;
}

void ImageTexture::ConvertImageTexture()
{
    std::lock_guard<std::mutex> lock(mutex);
    converted = false;
    if (currentData == nullptr || !newImage) {
        return;
    }
    receivedTime = currentData->GetReceivedTime();
    if (currentData->ConvertToTextureImage(pixelBuffer, header, transformCore)) {
        width = transformCore.textureWidth;
        height = transformCore.textureHeight;
        pixelFormat = currentData->GetOgreImageFormat();
        converted = true;
        SaveTextureInformationIntoCache();
    }
}

void ImageTexture::SaveTextureInformationIntoCache()
{
    // The converted picture moves into the backlog; the oldest buffer there becomes the next
    // conversion target, so pictures are neither copied nor reallocated while the size holds.
    headerCache.push_back(header);
    bufferCache.push_back(std::move(pixelBuffer));
    pixelBuffer.clear();
    while (headerCache.size() > imageBacklog) {
        headerCache.pop_front();
    }
    while (bufferCache.size() > imageBacklog) {
        pixelBuffer = std::move(bufferCache.front());
        bufferCache.pop_front();
    }
}

bool ImageTexture::Update()
{
    std::lock_guard<std::mutex> lock(mutex);
    if (!newImage) {
        return false;
    }
    newImage = false;
    if (!converted || bufferCache.empty() || bufferCache.back().empty()) {
        return false;
    }
    std::vector<uint8_t>& pixels = bufferCache.back();
    try {
        if (texture->getSrcWidth() == width && texture->getSrcHeight() == height &&
            texture->getSrcFormat() == pixelFormat) {
            // Same size and format: the pixels are written into the texture there is.
            texture->getBuffer()->blitFromMemory(Ogre::PixelBox(width, height, 1, pixelFormat, pixels.data()));
        } else {
            Ogre::DataStreamPtr stream(new Ogre::MemoryDataStream(pixels.data(), pixels.size()));
            Ogre::Image image;
            image.loadRawData(stream, width, height, 1, pixelFormat);
            texture->unload();
            texture->loadImage(image);
        }
    } catch (const Ogre::Exception& exception) {
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error,
                                             "Error loading image: " + exception.getDescription());
        return false;
    }
    return true;
}

void ImageTexture::Clear()
{
    std::lock_guard<std::mutex> lock(mutex);
    texture->unload();
    texture->loadImage(emptyImage);
    width = static_cast<unsigned>(emptyImage.getWidth());
    height = static_cast<unsigned>(emptyImage.getHeight());
    newImage = false;
    currentData.reset();
}

bool ImageTexture::IsNewTexture()
{
    std::lock_guard<std::mutex> lock(mutex);
    return newImage;
}

bool ImageTexture::IsEmptyTexture()
{
    std::lock_guard<std::mutex> lock(mutex);
    return currentData == nullptr;
}

unsigned ImageTexture::GetWidth()
{
    std::lock_guard<std::mutex> lock(mutex);
    return width;
}

unsigned ImageTexture::GetHeight()
{
    std::lock_guard<std::mutex> lock(mutex);
    return height;
}

std_msgs::Header ImageTexture::GetHeader()
{
    std::lock_guard<std::mutex> lock(mutex);
    return header;
}

std_msgs::Header ImageTexture::GetReceivedTime()
{
    std::lock_guard<std::mutex> lock(mutex);
    return receivedTime;
}

} // namespace rviz_plugin

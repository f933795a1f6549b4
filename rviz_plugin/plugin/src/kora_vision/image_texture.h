#ifndef RVIZ_PLUGIN_IMAGE_TEXTURE_H
#define RVIZ_PLUGIN_IMAGE_TEXTURE_H

#include "frames/texture_data.h"

#include <OgreImage.h>
#include <OgreTexture.h>
#include <std_msgs/Header.h>

#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace rviz_plugin {

// The Ogre texture of one quad. Frames are handed in from the overlay thread (AddMessage, which
// drops a frame while the previous one is still pending) and converted and uploaded on the main
// thread. Without a frame it shows the idle picture "no_image.png".
class ImageTexture {
public:
    ImageTexture();
    ~ImageTexture();
    ImageTexture(const ImageTexture&) = delete;
    ImageTexture& operator=(const ImageTexture&) = delete;

    void AddMessage(const std::shared_ptr<TextureData>& data, unsigned windowWidth, unsigned windowHeight);
    void ConvertImageTexture();
    // Uploads the converted frame; true when the texture changed.
    bool Update();
    void Clear();

    const Ogre::TexturePtr& GetTexture() const { return texture; }
    bool IsNewTexture();
    bool IsEmptyTexture();
    unsigned GetWidth();
    unsigned GetHeight();
    std_msgs::Header GetHeader();
    std_msgs::Header GetReceivedTime();

private:
    void SaveTextureInformationIntoCache();

    std::string topic;
    unsigned imageBacklog = 3;
    std::shared_ptr<TextureData> currentData;
    std_msgs::Header header;
    std::vector<uint8_t> pixelBuffer;
    std_msgs::Header receivedTime;
    Ogre::TexturePtr texture;
    Ogre::Image emptyImage;
    unsigned width = 0;
    unsigned height = 0;
    Ogre::PixelFormat pixelFormat = Ogre::PF_R8G8B8;
    bool newImage = false;
    bool converted = true;
    std::mutex mutex;
    std::deque<std_msgs::Header> headerCache;
    std::deque<std::vector<uint8_t>> bufferCache;
    TransformCore transformCore;
};

} // namespace rviz_plugin

#endif

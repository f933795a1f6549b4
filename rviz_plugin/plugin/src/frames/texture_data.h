#ifndef RVIZ_PLUGIN_TEXTURE_DATA_H
#define RVIZ_PLUGIN_TEXTURE_DATA_H

#include <OgrePixelFormat.h>
#include <std_msgs/Header.h>

#include <cstdint>
#include <vector>

struct SwsContext;

namespace rviz_plugin {

// Size and pixel format of a picture.
struct Param {
    int width = 0;
    int height = 0;
    int format = -1;

    bool operator==(const Param& other) const
    {
        return width == other.width && height == other.height && format == other.format;
    }
};

// The scaler of one texture and the sizes it worked with last.
struct TransformCore {
    TransformCore() = default;
    ~TransformCore();
    TransformCore(const TransformCore&) = delete;
    TransformCore& operator=(const TransformCore&) = delete;

    SwsContext* context = nullptr;
    Param source;
    Param target;
    unsigned textureWidth = 0;
    unsigned textureHeight = 0;
    unsigned windowWidth = 0;
    unsigned windowHeight = 0;
};

// Something that can be put on a textured quad: converts itself into pixels of its Ogre format,
// scaled down to fit the window it will be shown in.
class TextureData {
public:
    explicit TextureData(Ogre::PixelFormat format) : ogreImageFormat(format) {}
    virtual ~TextureData() = default;
    TextureData(const TextureData&) = delete;
    TextureData& operator=(const TextureData&) = delete;

    // Fills buffer and header; the texture size lands in core. False (and a log line) on failure.
    virtual bool ConvertToTextureImage(std::vector<uint8_t>& buffer, std_msgs::Header& header,
                                       TransformCore& core) = 0;
    virtual Ogre::PixelFormat GetOgreImageFormat() const { return ogreImageFormat; }

    void SetReceivedTime(const std_msgs::Header& received) { receivedTime = received; }
    const std_msgs::Header& GetReceivedTime() const { return receivedTime; }

    // value rounded down to a multiple of alignment; 0 when alignment is 0.
    static int AlignSize(int value, int alignment);
    // The largest size of the source's aspect that fits in max, never larger than the source.
    static void CalcImageSize(unsigned srcWidth, unsigned srcHeight, unsigned maxWidth, unsigned maxHeight,
                              unsigned& outWidth, unsigned& outHeight);

protected:
    static void LogTextureSizeError(unsigned width, unsigned height);

private:
    Ogre::PixelFormat ogreImageFormat;
    std_msgs::Header receivedTime;
};

} // namespace rviz_plugin

#endif

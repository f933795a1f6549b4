#ifndef RVIZ_PLUGIN_RGBA_TEXTURE_DATA_H
#define RVIZ_PLUGIN_RGBA_TEXTURE_DATA_H

#include "texture_data.h"

#include <sensor_msgs/Image.h>

namespace rviz_plugin {

// The overlay canvas: an 8-bit, 4-channel image drawn by the overlay thread, scaled linearly.
class RgbaTextureData : public TextureData {
public:
    explicit RgbaTextureData(boost::shared_ptr<sensor_msgs::Image> image)
        : TextureData(Ogre::PF_A8R8G8B8), image(std::move(image))
    {
    }

    bool ConvertToTextureImage(std::vector<uint8_t>& buffer, std_msgs::Header& header, TransformCore& core) override;
    const boost::shared_ptr<sensor_msgs::Image>& GetSensorImage() const { return image; }

private:
    boost::shared_ptr<sensor_msgs::Image> image;
};

} // namespace rviz_plugin

#endif

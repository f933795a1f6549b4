#ifndef RVIZ_PLUGIN_YUV_TEXTURE_DATA_H
#define RVIZ_PLUGIN_YUV_TEXTURE_DATA_H

#include "texture_data.h"

struct AVFrame;

namespace rviz_plugin {

// A decoded video picture in system memory, converted to BGR for the video quad.
class YuvTextureData : public TextureData {
public:
    YuvTextureData();
    ~YuvTextureData() override;

    bool ConvertToTextureImage(std::vector<uint8_t>& buffer, std_msgs::Header& header, TransformCore& core) override;

    void SetFrameData(AVFrame* source);
    void SetFrameHeader(const std_msgs::Header& frameHeader) { header = frameHeader; }
    const std_msgs::Header& GetFrameHeader() const { return header; }
    AVFrame* GetAvFrame() const { return frame; }
    // Builds the scaler for source -> target in core; false when it cannot be made.
    bool Init(const Param& source, const Param& target, TransformCore& core);

private:
    std_msgs::Header header;
    int bytesPerPixel = 3;
    AVFrame* frame = nullptr;
};

} // namespace rviz_plugin

#endif

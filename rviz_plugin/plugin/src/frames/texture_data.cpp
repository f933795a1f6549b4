#include "texture_data.h"

#include "extern_ffmpeg.h"

#include "foundation/logger.h"

namespace rviz_plugin {

TransformCore::~TransformCore()
{
    if (context != nullptr) {
        ExternSwsFreeContext(context);
    }
}

int TextureData::AlignSize(int value, int alignment)
{
    if (alignment == 0) {
        return 0;
    }
    return value / alignment * alignment;
}

void TextureData::CalcImageSize(unsigned srcWidth, unsigned srcHeight, unsigned maxWidth, unsigned maxHeight,
                                unsigned& outWidth, unsigned& outHeight)
{
    constexpr unsigned minWidth = 4;
    if (maxWidth >= srcWidth && maxHeight >= srcHeight) {
        outWidth = srcWidth;
        outHeight = srcHeight;
        return;
    }
    if (srcHeight == 0 || maxHeight == 0) {
        outWidth = 0;
        outHeight = 0;
        return;
    }
    const float ratio = static_cast<float>(srcWidth) / static_cast<float>(srcHeight);
    if (static_cast<float>(maxWidth) / static_cast<float>(maxHeight) >= ratio) {
        outWidth = std::max(static_cast<unsigned>(ratio * static_cast<float>(maxHeight)), minWidth);
        outHeight = maxHeight;
    } else {
        outWidth = maxWidth;
        outHeight = std::max(static_cast<unsigned>(static_cast<float>(maxWidth) / ratio), 1U);
    }
}

void TextureData::LogTextureSizeError(unsigned width, unsigned height)
{
    Orsa::Logger::GetInstance().WriteLog(
        "KoraVision", Orsa::LogLevel::Error,
        "Texture width or texture height is 0. Texture transformation is failed. Texture width: " +
            std::to_string(width) + ". Texture height: " + std::to_string(height) + ".");
}

} // namespace rviz_plugin

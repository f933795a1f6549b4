#ifndef RVIZ_PLUGIN_VIDEO_STREAM_LOADER_H
#define RVIZ_PLUGIN_VIDEO_STREAM_LOADER_H

#include <cstdint>
#include <string>
#include <vector>

namespace rviz_plugin {

// The stored H.265 streams of the decoding evaluation. A stream file is one package, little endian:
//   uint32 fieldCount (5), then the fields: uint32 magic "KVS1", width, height, fps, frameCount;
//   then frameCount times: uint32 length, the access unit's bytes.
class VideoStreamLoader {
public:
    struct Stream {
        uint32_t width = 0;
        uint32_t height = 0;
        uint32_t fps = 0;
        std::vector<std::vector<uint8_t>> frames;
    };

    static constexpr uint32_t fieldCount = 5;
    static constexpr uint32_t magic = 0x3153564B;  // "KVS1"

    // Reads every named file of directory; false when one is missing or not a valid package.
    bool Initialize(const std::string& directory, const std::vector<std::string>& files);
    const Stream* GetStream(const std::string& file) const;
    const std::string& GetError() const { return error; }

    // The header fields of a package, checked for their number and magic; false when not valid.
    static bool ParseDataPackage(const std::vector<uint8_t>& data, Stream& stream, std::size_t& offset);
    // Cuts the access units behind the header; false when the file ends inside one.
    static bool SplitVideoData(const std::vector<uint8_t>& data, std::size_t offset, uint32_t frameCount,
                               Stream& stream);
    static std::vector<uint8_t> MakePackage(const Stream& stream);

private:
    std::vector<std::pair<std::string, Stream>> streams;
    std::string error;
};

} // namespace rviz_plugin

#endif

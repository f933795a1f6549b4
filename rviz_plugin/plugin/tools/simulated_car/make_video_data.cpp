// Writes the stream files of the decoding evaluation: the simulated car's front camera encoded to
// H.265, 10 s at 1080p and 2 s at 4K, both 30 fps with a key frame every second.
//   make_video_data DIRECTORY
#include "decoder_switch/video_stream_loader.h"
#include "simulated_car/h265_encoder.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace {
bool Write(const std::filesystem::path& file, int width, int height, int seconds)
{
    constexpr int fps = 30;
    rviz_plugin::VideoStreamLoader::Stream stream;
    stream.width = static_cast<uint32_t>(width);
    stream.height = static_cast<uint32_t>(height);
    stream.fps = fps;
    stream.frames = simulated_car::EncodeSceneStream(width, height, fps, fps, fps * seconds);
    if (stream.frames.size() != static_cast<std::size_t>(fps * seconds)) {
        std::cerr << "encoding " << file << " failed" << std::endl;
        return false;
    }
    const std::vector<uint8_t> package = rviz_plugin::VideoStreamLoader::MakePackage(stream);
    const std::filesystem::path partial = file.string() + ".partial";
    std::ofstream output(partial, std::ios::binary);
    output.write(reinterpret_cast<const char*>(package.data()), static_cast<std::streamsize>(package.size()));
    output.close();
    if (!output) {
        return false;
    }
    std::filesystem::rename(partial, file);
    return true;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_video_data DIRECTORY" << std::endl;
        return 2;
    }
    const std::filesystem::path directory(argv[1]);
    std::filesystem::create_directories(directory);
    const bool written = Write(directory / "1080p_30hz_data.h265", 1920, 1080, 10) &&
                         Write(directory / "4k_30hz_data.h265", 3840, 2160, 2);
    return written ? 0 : 1;
}

#include "video_stream_loader.h"

#include "foundation/path_utils.h"

#include <fstream>
#include <iterator>

namespace rviz_plugin {

namespace {
bool ReadWord(const std::vector<uint8_t>& data, std::size_t& offset, uint32_t& word)
{
    if (data.size() < offset + 4) {
        return false;
    }
    word = static_cast<uint32_t>(data[offset]) | (static_cast<uint32_t>(data[offset + 1]) << 8) |
           (static_cast<uint32_t>(data[offset + 2]) << 16) | (static_cast<uint32_t>(data[offset + 3]) << 24);
    offset += 4;
    return true;
}

void WriteWord(std::vector<uint8_t>& data, uint32_t word)
{
    for (int shift = 0; shift < 32; shift += 8) {
        data.push_back(static_cast<uint8_t>(word >> shift));
    }
}
} // namespace

bool VideoStreamLoader::ParseDataPackage(const std::vector<uint8_t>& data, Stream& stream, std::size_t& offset)
{
    offset = 0;
    uint32_t count = 0;
    if (!ReadWord(data, offset, count) || count != fieldCount) {
        return false;
    }
    uint32_t fields[fieldCount] = {};
    for (uint32_t& field : fields) {
        if (!ReadWord(data, offset, field)) {
            return false;
        }
    }
    if (fields[0] != magic || fields[1] == 0 || fields[2] == 0 || fields[3] == 0) {
        return false;
    }
    stream.width = fields[1];
    stream.height = fields[2];
    stream.fps = fields[3];
    return SplitVideoData(data, offset, fields[4], stream);
}

bool VideoStreamLoader::SplitVideoData(const std::vector<uint8_t>& data, std::size_t offset, uint32_t frameCount,
                                       Stream& stream)
{
    stream.frames.clear();
    for (uint32_t i = 0; i < frameCount; ++i) {
        uint32_t length = 0;
        if (!ReadWord(data, offset, length) || data.size() - offset < length) {
            stream.frames.clear();
            return false;
        }
        const auto begin = data.begin() + static_cast<std::ptrdiff_t>(offset);
        stream.frames.emplace_back(begin, begin + length);
        offset += length;
    }
    return !stream.frames.empty();
}

std::vector<uint8_t> VideoStreamLoader::MakePackage(const Stream& stream)
{
    std::vector<uint8_t> data;
    WriteWord(data, fieldCount);
    for (uint32_t field : {magic, stream.width, stream.height, stream.fps, static_cast<uint32_t>(stream.frames.size())}) {
        WriteWord(data, field);
    }
    for (const auto& frame : stream.frames) {
        WriteWord(data, static_cast<uint32_t>(frame.size()));
        data.insert(data.end(), frame.begin(), frame.end());
    }
    return data;
}

bool VideoStreamLoader::Initialize(const std::string& directory, const std::vector<std::string>& files)
{
    streams.clear();
    for (const std::string& file : files) {
        std::ifstream input(Orsa::JoinPath(directory, file), std::ios::binary);
        if (!input) {
            error = file + " cannot be opened";
            return false;
        }
        const std::vector<uint8_t> data((std::istreambuf_iterator<char>(input)), std::istreambuf_iterator<char>());
        Stream stream;
        std::size_t offset = 0;
        if (!ParseDataPackage(data, stream, offset)) {
            error = file + " is not a valid stream package";
            return false;
        }
        streams.emplace_back(file, std::move(stream));
    }
    return true;
}

const VideoStreamLoader::Stream* VideoStreamLoader::GetStream(const std::string& file) const
{
    for (const auto& entry : streams) {
        if (entry.first == file) {
            return &entry.second;
        }
    }
    return nullptr;
}

} // namespace rviz_plugin

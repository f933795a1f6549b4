#ifndef SIMULATED_CAR_H265_ENCODER_H
#define SIMULATED_CAR_H265_ENCODER_H

#include <cstdint>
#include <string>
#include <vector>

struct AVCodecContext;
struct AVFrame;
struct AVPacket;

namespace simulated_car {

// A YUV 4:2:0 picture in three tightly packed planes.
struct YuvImage {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> y;
    std::vector<uint8_t> u;
    std::vector<uint8_t> v;

    YuvImage(int w, int h)
        : width(w), height(h), y(static_cast<std::size_t>(w) * h),
          u(static_cast<std::size_t>((w + 1) / 2) * ((h + 1) / 2)), v(u.size())
    {
    }
};

// H.265 through libavcodec's libx265: no B-frames, a key frame (with its parameter sets in band)
// every keyInterval pictures, one access unit out for each picture in.
class H265Encoder {
public:
    H265Encoder(int width, int height, int fps, int keyInterval);
    ~H265Encoder();
    H265Encoder(const H265Encoder&) = delete;
    H265Encoder& operator=(const H265Encoder&) = delete;

    bool IsOpen() const { return context != nullptr; }
    const std::string& GetError() const { return error; }
    // The access unit of this picture; empty when the encoder failed.
    std::vector<uint8_t> Encode(const YuvImage& image);
    int GetWidth() const { return width; }
    int GetHeight() const { return height; }

private:
    int width;
    int height;
    int64_t nextPts = 0;
    AVCodecContext* context = nullptr;
    AVFrame* frame = nullptr;
    AVPacket* packet = nullptr;
    std::string error;
};

// count access units of the synthetic scene of camera 0, starting at picture first.
std::vector<std::vector<uint8_t>> EncodeSceneStream(int width, int height, int fps, int keyInterval, int count);

} // namespace simulated_car

#endif

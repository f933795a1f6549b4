#include "decode_performance_evaluate.h"

#include "decoder.h"
#include "video_decoder.h"

#include "frames/yuv_texture_data.h"

#include <boost/make_shared.hpp>

#include <chrono>
#include <limits>

namespace rviz_plugin {

namespace {
using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}
} // namespace

DecodePerformanceEvaluate::DecodePerformanceEvaluate(const VideoStreamLoader::Stream& source, int mode)
    : stream(source), selectionMode(mode)
{
}

DecodePerformanceEvaluate::~DecodePerformanceEvaluate()
{
    Stop();
}

bool DecodePerformanceEvaluate::Start()
{
    int type = 0;
    decoder = VideoDecoder::MakeDecoder(selectionMode, type);
    if (decoder->Initialize() != Decoder::initSuccess || stream.frames.empty() || !imageConvert.Initialize()) {
        return false;
    }
    running = true;
    thread = std::thread(&DecodePerformanceEvaluate::DecodeDataStream, this);
    return true;
}

void DecodePerformanceEvaluate::Stop()
{
    running = false;
    if (thread.joinable()) {
        thread.join();
    }
    imageConvert.Stop();
}

void DecodePerformanceEvaluate::DecodeDataStream()
{
    const auto period = std::chrono::nanoseconds(1000000000LL / std::max<uint32_t>(stream.fps, 1));
    const Clock::time_point start = Clock::now();
    for (uint64_t index = 0; running; ++index) {
        // Paced as a camera: one access unit per frame period, the stream looping from its key frame.
        std::this_thread::sleep_until(start + period * static_cast<int64_t>(index));
        auto message = boost::make_shared<custom::Video>();
        message->header.seq = static_cast<uint32_t>(index);
        message->header.stamp.fromNSec(static_cast<uint64_t>(period.count()) * (index + 1));
        message->data = stream.frames[index % stream.frames.size()];
        DecodeFrame(message);
    }
}

void DecodePerformanceEvaluate::DecodeFrame(const boost::shared_ptr<custom::Video>& message)
{
    auto frame = std::make_shared<YuvTextureData>();
    const Clock::time_point start = Clock::now();
    const int result = decoder->Decode(message, frame);
    const double elapsed = MillisecondsSince(start);
    {
        std::lock_guard<std::mutex> lock(timeMutex);
        decodeSum += elapsed;
        ++decodeCount;
    }
    if (result == Decoder::decodedPicture) {
        frame->SetFrameHeader(message->header);
        imageConvert.SaveImageToCache(frame);
    }
}

void DecodePerformanceEvaluate::ConvertImage()
{
    const Clock::time_point start = Clock::now();
    if (!imageConvert.UpdateImage()) {
        return;
    }
    const double elapsed = MillisecondsSince(start);
    std::lock_guard<std::mutex> lock(timeMutex);
    convertSum += elapsed;
    ++convertCount;
}

void DecodePerformanceEvaluate::GetTimes(double& decodeMs, double& convertMs)
{
    std::lock_guard<std::mutex> lock(timeMutex);
    // A channel that decoded or showed nothing has not kept up.
    const double never = std::numeric_limits<double>::infinity();
    decodeMs = decodeCount == 0 ? never : decodeSum / decodeCount;
    convertMs = convertCount == 0 ? never : convertSum / convertCount;
}

} // namespace rviz_plugin

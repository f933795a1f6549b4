#include "encoder.h"

#include "frames/extern_ffmpeg.h"

#include "foundation/logger.h"

namespace rviz_plugin {

namespace {
const char* const logModule = "RecordVideoDataTool";
constexpr int gopSize = 10;
constexpr int qualityMin = 2;
constexpr int qualityMax = 6;

std::string ErrorText(int code)
{
    return std::to_string(code) + userGuideHint;
}
} // namespace

Encoder::~Encoder()
{
    Release();
}

void Encoder::LogError(const std::string& message)
{
    Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Error, message);
}

std::string Encoder::FailureText(const std::string& what)
{
    return "Failed to initialize the encoder: " + what + ". Memory may be insufficient. Release memory and restart Orsa.";
}

int Encoder::Fail(const std::string& message)
{
    Release();
    LogError(message);
    return initFailure;
}

int64_t Encoder::BitRateForSize(int pictureWidth, int pictureHeight)
{
    const int64_t pixels = static_cast<int64_t>(pictureWidth) * pictureHeight;
    if (pixels <= 409920) {
        return 410000;
    }
    if (pixels <= 921600) {
        return 920000;
    }
    return 2070000;
}

bool Encoder::Initialize(const std::string& name, int pictureWidth, int pictureHeight)
{
    ExternAvLogSetLevel(AV_LOG_ERROR);
    width = pictureWidth;
    height = pictureHeight;
    isInitialized = InitializeStructure(name) == initSuccess;
    return isInitialized;
}

int Encoder::InitializeStructure(const std::string& name)
{
    fileName = name;
    if (InitializeFormatCtx(fileName) != initSuccess || InitializeStream() != initSuccess ||
        InitializeEncodeCtx() != initSuccess || SetEncodeCtx() != initSuccess) {
        return initFailure;
    }
    return initSuccess;
}

int Encoder::InitializeFormatCtx(const std::string& name)
{
    ExternAvformatAllocOutputContext2(&formatContext, nullptr, nullptr, name.c_str());
    if (formatContext == nullptr) {
        LogError("Failed to deduce output format from file extension: using MPEG.");
        ExternAvformatAllocOutputContext2(&formatContext, nullptr, "mpeg", name.c_str());
    }
    if (formatContext == nullptr) {
        return Fail(FailureText("AVFormatContext"));
    }
    outputFormat = formatContext->oformat;
    return initSuccess;
}

int Encoder::InitializeStream()
{
    packet = ExternAvPacketAlloc();
    if (packet == nullptr) {
        return Fail(FailureText("AVPacket"));
    }
    stream = ExternAvformatNewStream(formatContext, nullptr);
    if (stream == nullptr) {
        return Fail(FailureText("AVStream"));
    }
    stream->id = static_cast<int>(formatContext->nb_streams) - 1;
    stream->time_base = timeBase;
    return initSuccess;
}

int Encoder::InitializeEncodeCtx()
{
    if (FindEncodeCtx() != initSuccess) {
        return initFailure;
    }
    codecContext = ExternAvcodecAllocContext3(codec);
    if (codecContext == nullptr) {
        return Fail(FailureText("AVCodecContext"));
    }
    return initSuccess;
}

int Encoder::SetEncodeCtx()
{
    SetPixelFormat();
    codecContext->width = width;
    codecContext->height = height;
    codecContext->bit_rate = BitRateForSize(width, height);
    codecContext->time_base = stream->time_base;
    codecContext->gop_size = gopSize;
    codecContext->max_b_frames = 0;
    codecContext->qmin = qualityMin;
    codecContext->qmax = qualityMax;
    // Containers that keep the parameter sets in their header (MP4) get them from the codec at the start.
    if ((outputFormat->flags & AVFMT_GLOBALHEADER) != 0) {
        codecContext->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    if (InitializeHwDevice(codecContext) == initFailure) {
        Release();
        return initFailure;
    }
    return initSuccess;
}

bool Encoder::InitWriteHeader()
{
    isInitialized = OpenAndWriteHeader(fileName) == initSuccess;
    return isInitialized;
}

int Encoder::OpenAndWriteHeader(const std::string& name)
{
    if (codecContext == nullptr || Open(name) != initSuccess) {
        return initFailure;
    }
    return WriteStreamHeader();
}

int Encoder::Open(const std::string& name)
{
    if (ExternAvcodecOpen2(codecContext, codec, nullptr) < 0) {
        return Fail(FailureText("Encoder not opened"));
    }
    if (AllocOutputFrame() != initSuccess) {
        return Fail(FailureText("AVFrame"));
    }
    if (ExternAvcodecParametersFromContext(stream->codecpar, codecContext) < 0) {
        return Fail(FailureText("AVCodecParameters"));
    }
    if (HasFile() && ExternAvioOpen(&formatContext->pb, name.c_str(), AVIO_FLAG_WRITE) < 0) {
        return Fail(FailureText("File not opened"));
    }
    return initSuccess;
}

int Encoder::AllocOutputFrame()
{
    outputFrame = ExternAvFrameAlloc();
    if (outputFrame == nullptr) {
        return initFailure;
    }
    SetFrameFormat(outputFrame);
    outputFrame->width = codecContext->width;
    outputFrame->height = codecContext->height;
    return ExternAvFrameGetBuffer(outputFrame, 0) < 0 ? initFailure : initSuccess;
}

int Encoder::WriteStreamHeader()
{
    // MP4 is written in fragments, each playable on its own: a file cut short by a full disk or a killed
    // process keeps what was written before; the trailer still completes a file that ends normally.
    AVDictionary* options = nullptr;
    if (std::string(outputFormat->name).find("mp4") != std::string::npos) {
        ExternAvDictSet(&options, "movflags", "frag_keyframe+empty_moov+default_base_moof", 0);
    }
    const int written = ExternAvformatWriteHeader(formatContext, &options);
    ExternAvDictFree(&options);
    if (written < 0) {
        return Fail(FailureText("Header not written"));
    }
    headerWritten = true;
    return initSuccess;
}

bool Encoder::HasFile() const
{
    return outputFormat != nullptr && (outputFormat->flags & AVFMT_NOFILE) == 0;
}

template <typename Source>
bool Encoder::ConvertAndEncode(const Source& source)
{
    if (!headerWritten || !converter.ConvertVideoFrame(source, outputFrame)) {
        LogError("Failed to convert video frame. Memory may be insufficient. Release memory and restart Orsa.");
        return false;
    }
    return EncodingAvFrame();
}

bool Encoder::Encode(const custom::AvFrame& source)
{
    return ConvertAndEncode(source);
}

bool Encoder::Encode(const AVFrame* source)
{
    return ConvertAndEncode(source);
}

bool Encoder::EncodingAvFrame()
{
    outputFrame->pts = nextPts++;
    return WriteFrame(outputFrame) == 0;
}

int Encoder::WriteFrame(AVFrame* frame)
{
    const int sent = ExternAvcodecSendFrame(codecContext, frame);
    if (sent < 0) {
        LogError("Failed to send frame to AVCodecContext. FFmpeg error type: " + ErrorText(sent));
        return -1;
    }
    while (true) {
        const int received = ExternAvcodecReceivePacket(codecContext, packet);
        if (received == AVERROR(EAGAIN) || received == AVERROR_EOF) {
            ExternAvPacketUnref(packet);
            return 0;
        }
        if (received < 0) {
            LogError("Failed to encode a frame. FFmpeg error type: " + ErrorText(received));
            return -1;
        }
        // Each picture lasts one time base; without it the muxer cuts the last picture off the file's length.
        if (packet->duration == 0) {
            packet->duration = 1;
        }
        ExternAvPacketRescaleTs(packet, codecContext->time_base, stream->time_base);
        packet->stream_index = stream->index;
        const int written = ExternAvInterleavedWriteFrame(formatContext, packet);
        if (written < 0) {
            LogError("Failed to write AVPacket. FFmpeg error type: " + ErrorText(written));
            return -1;
        }
    }
}

void Encoder::Finished()
{
    if (isInitialized && headerWritten) {
        // The codec holds pictures back; a null picture asks for all of them, so every picture given is kept.
        Encoder::WriteFrame(nullptr);
        ExternAvWriteTrailer(formatContext);
    }
    Release();
}

void Encoder::Release()
{
    isInitialized = false;
    headerWritten = false;
    ExternAvcodecFreeContext(&codecContext);
    ExternAvFrameFree(&outputFrame);
    ExternAvPacketFree(&packet);
    if (formatContext != nullptr && HasFile()) {
        ExternAvioClosep(&formatContext->pb);
    }
    ExternAvformatFreeContext(formatContext);
    formatContext = nullptr;
    outputFormat = nullptr;
    stream = nullptr;
}

} // namespace rviz_plugin

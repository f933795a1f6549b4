#include "decoder.h"

#include "frames/custom_av_frame_data.h"

#include "foundation/logger.h"
#include "frames/extern_ffmpeg.h"
#include "frames/yuv_texture_data.h"

#include <cerrno>

namespace rviz_plugin {

namespace {
std::map<int, std::string> MakeErrorNames()
{
    std::map<int, std::string> names = {
        {AVERROR_BSF_NOT_FOUND, "BSF_NOT_FOUND"},
        {AVERROR_BUG, "BUG"},
        {AVERROR_BUG2, "BUG2"},
        {AVERROR_BUFFER_TOO_SMALL, "BUFFER_TOO_SMALL"},
        {AVERROR_DECODER_NOT_FOUND, "DECODER_NOT_FOUND"},
        {AVERROR_DEMUXER_NOT_FOUND, "DEMUXER_NOT_FOUND"},
        {AVERROR_ENCODER_NOT_FOUND, "ENCODER_NOT_FOUND"},
        {AVERROR_EOF, "EOF"},
        {AVERROR_EXIT, "EXIT"},
        {AVERROR_EXTERNAL, "EXTERNAL"},
        {AVERROR_FILTER_NOT_FOUND, "FILTER_NOT_FOUND"},
        {AVERROR_INPUT_CHANGED, "INPUT_CHANGED"},
        {AVERROR_INVALIDDATA, "INVALIDDATA"},
        {AVERROR_MUXER_NOT_FOUND, "MUXER_NOT_FOUND"},
        {AVERROR_OPTION_NOT_FOUND, "OPTION_NOT_FOUND"},
        {AVERROR_OUTPUT_CHANGED, "OUTPUT_CHANGED"},
        {AVERROR_PATCHWELCOME, "PATCHWELCOME"},
        {AVERROR_PROTOCOL_NOT_FOUND, "PROTOCOL_NOT_FOUND"},
        {AVERROR_STREAM_NOT_FOUND, "STREAM_NOT_FOUND"},
        {AVERROR_UNKNOWN, "UNKNOWN"},
        {AVERROR_EXPERIMENTAL, "EXPERIMENTAL"},
        {AVERROR_HTTP_BAD_REQUEST, "HTTP_BAD_REQUEST"},
        {AVERROR_HTTP_UNAUTHORIZED, "HTTP_UNAUTHORIZED"},
        {AVERROR_HTTP_FORBIDDEN, "HTTP_FORBIDDEN"},
        {AVERROR_HTTP_NOT_FOUND, "HTTP_NOT_FOUND"},
        {AVERROR_HTTP_OTHER_4XX, "HTTP_OTHER_4XX"},
        {AVERROR_HTTP_SERVER_ERROR, "HTTP_SERVER_ERROR"},
    };
    const std::pair<int, const char*> posix[] = {
        {E2BIG, "E2BIG"},     {EACCES, "EACCES"},   {EAGAIN, "EAGAIN"},   {EBADF, "EBADF"},
        {EBUSY, "EBUSY"},     {ECHILD, "ECHILD"},   {EDEADLK, "EDEADLK"}, {EDOM, "EDOM"},
        {EEXIST, "EEXIST"},   {EFAULT, "EFAULT"},   {EFBIG, "EFBIG"},     {EILSEQ, "EILSEQ"},
        {EINTR, "EINTR"},     {EINVAL, "EINVAL"},   {EIO, "EIO"},         {EISDIR, "EISDIR"},
        {EMFILE, "EMFILE"},   {EMLINK, "EMLINK"},   {ENAMETOOLONG, "ENAMETOOLONG"},
        {ENFILE, "ENFILE"},   {ENODEV, "ENODEV"},   {ENOENT, "ENOENT"},   {ENOEXEC, "ENOEXEC"},
        {ENOLCK, "ENOLCK"},   {ENOMEM, "ENOMEM"},   {ENOSPC, "ENOSPC"},   {ENOSYS, "ENOSYS"},
        {ENOTDIR, "ENOTDIR"}, {ENOTEMPTY, "ENOTEMPTY"}, {ENOTTY, "ENOTTY"}, {ENXIO, "ENXIO"},
        {EPERM, "EPERM"},     {EPIPE, "EPIPE"},     {ERANGE, "ERANGE"},   {EROFS, "EROFS"},
        {ESPIPE, "ESPIPE"},   {ESRCH, "ESRCH"},     {EXDEV, "EXDEV"},
    };
    for (const auto& [number, name] : posix) {
        names[AVERROR(number)] = name;
    }
    return names;
}
} // namespace

Decoder::Decoder() : errorNames(MakeErrorNames()) {}

Decoder::~Decoder()
{
    Release();
}

void Decoder::LogError(const std::string& message) const
{
    Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error, message);
}

std::string Decoder::GetErrorMessage(int code) const
{
    const auto found = errorNames.find(code);
    return found == errorNames.end() ? unknownErrorName : found->second;
}

void Decoder::Release()
{
    if (parserContext != nullptr) {
        ExternAvParserClose(parserContext);
        parserContext = nullptr;
    }
    if (codecContext != nullptr) {
        ExternAvcodecFreeContext(&codecContext);
    }
    if (frame != nullptr) {
        ExternAvFrameFree(&frame);
    }
    if (packet != nullptr) {
        ExternAvPacketFree(&packet);
    }
    if (options != nullptr) {
        ExternAvDictFree(&options);
    }
}

int Decoder::Fail(const std::string& message)
{
    Release();
    LogError(message);
    return initFailure;
}

int Decoder::Initialize()
{
    ExternAvLogSetLevel(AV_LOG_ERROR);
    codec = nullptr;
    codecContext = nullptr;
    parserContext = nullptr;
    packet = nullptr;
    frame = nullptr;
    const int result = InitializeStructure();
    isInitialized = result == initSuccess;
    return result;
}

int Decoder::InitializeStructure()
{
    for (int (Decoder::*step)() : {&Decoder::InitializeCore, &Decoder::InitializeParser, &Decoder::InitializeStorage,
                                   &Decoder::Open}) {
        if ((this->*step)() == initFailure) {
            return initFailure;
        }
    }
    return initSuccess;
}

int Decoder::InitializeHevcDecoder()
{
    codec = ExternAvcodecFindDecoder(AV_CODEC_ID_HEVC);
    if (codec == nullptr) {
        return Fail("Failed to initialize the decoder: AVCodec not found. Memory may be insufficient. Release "
                    "memory and restart Orsa.");
    }
    return initSuccess;
}

int Decoder::InitializeHevcDecoderContext()
{
    codecContext = ExternAvcodecAllocContext3(codec);
    if (codecContext == nullptr) {
        return Fail("Failed to initialize the decoder: AVCodecContext. Memory may be insufficient. Release memory "
                    "and restart Orsa.");
    }
    return initSuccess;
}

int Decoder::InitializeParser()
{
    // Created with the decoder so that a decoder that could not parse never starts; messages carry
    // whole access units, so no decoding path feeds it.
    parserContext = ExternAvParserInit(codec->id);
    if (parserContext == nullptr) {
        return Fail("Failed to initialize the decoder: AVCodecParserContext. Memory may be insufficient. Release "
                    "memory and restart Orsa.");
    }
    return initSuccess;
}

int Decoder::InitializeStorage()
{
    packet = ExternAvPacketAlloc();
    if (packet == nullptr) {
        return Fail("Failed to initialize the decoder: AVPacket. Memory may be insufficient. Release memory and "
                    "restart Orsa.");
    }
    frame = ExternAvFrameAlloc();
    if (frame == nullptr) {
        return Fail("Failed to initialize the decoder: AVFrame. Memory may be insufficient. Release memory and "
                    "restart Orsa.");
    }
    return initSuccess;
}

int Decoder::Open()
{
    const int result = ExternAvcodecOpen2(codecContext, codec, &options);
    if (result < 0) {
        return Fail("Failed to initialize the decoder as it cannot be opened. FFmpeg error type: " +
                    GetErrorMessage(result) + userGuideHint);
    }
    return initSuccess;
}

int Decoder::Decode(const boost::shared_ptr<custom::Video>& msg, std::shared_ptr<YuvTextureData>& target)
{
    if (msg == nullptr || msg->data.empty()) {
        LogError("encodedFrame.data is nullptr");
        return decodeError;
    }
    return AvcodecDecoding(msg, target);
}

int Decoder::AvcodecDecoding(const boost::shared_ptr<custom::Video>& msg, std::shared_ptr<YuvTextureData>& target)
{
    if (!isInitialized || target == nullptr || target->GetAvFrame() == nullptr) {
        return decodeError;
    }
    // The packet borrows the message's bytes; FFmpeg copies what it keeps.
    packet->data = msg->data.data();
    packet->size = static_cast<int>(msg->data.size());
    const int sent = ExternAvcodecSendPacket(codecContext, packet);
    packet->data = nullptr;
    packet->size = 0;
    if (sent < 0) {
        LogError("Failed to send data to AVPacket. FFmpeg error type: " + GetErrorMessage(sent) + userGuideHint);
        return decodeError;
    }
    return ReceivePicture(target);
}

int Decoder::Drain(std::shared_ptr<YuvTextureData>& target)
{
    if (!isInitialized || target == nullptr || target->GetAvFrame() == nullptr) {
        return decodeError;
    }
    if (!isDraining) {
        isDraining = true;
        const int sent = ExternAvcodecSendPacket(codecContext, nullptr);
        if (sent < 0) {
            LogError("Failed to send data to AVPacket. FFmpeg error type: " + GetErrorMessage(sent) + userGuideHint);
            return decodeError;
        }
    }
    return ReceivePicture(target);
}

int Decoder::ReceivePicture(std::shared_ptr<YuvTextureData>& target)
{
    const int received = ExternAvcodecReceiveFrame(codecContext, GetFrameInDecoder(target));
    if (received == AVERROR(EAGAIN) || received == AVERROR_EOF) {
        return noPictureYet;
    }
    if (received < 0) {
        LogError("Failed to decode a frame. FFmpeg error type: " + GetErrorMessage(received) + userGuideHint);
        return decodeError;
    }
    const int copied = CopyFrameToMemory(target);
    if (copied == decodeError) {
        return decodeError;
    }
    if (customAvFrameData != nullptr) {
        customAvFrameData->SetCustomAvFrame(target->GetAvFrame());
    }
    return copied;
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_DECODER_H
#define RVIZ_PLUGIN_DECODER_H

#include "frames/extern_ffmpeg.h"

#include <custom/Video.h>

#include <map>
#include <memory>
#include <string>

struct AVCodec;
struct AVCodecContext;
struct AVCodecParserContext;
struct AVDictionary;
struct AVFrame;
struct AVPacket;

namespace rviz_plugin {

class CustomAvFrameData;
class YuvTextureData;

// H.265 decoder over FFmpeg: one access unit in, at most one picture in system memory out.
// Initialisation results: 1 success, -2 failure. Decode results: 0 picture, 2 no picture yet, -1 error.
class Decoder {
public:
    static constexpr int initSuccess = 1;
    static constexpr int initFailure = -2;
    static constexpr int decodedPicture = 0;
    static constexpr int noPictureYet = 2;
    static constexpr int decodeError = -1;

    Decoder();
    virtual ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    virtual int Initialize();
    virtual int Decode(const boost::shared_ptr<custom::Video>& msg, std::shared_ptr<YuvTextureData>& frame);
    // The pictures the decoder still holds, one per call, after which it takes no more units:
    // decodedPicture while there are some, then noPictureYet.
    int Drain(std::shared_ptr<YuvTextureData>& frame);
    virtual bool GetIsInitialized() const { return isInitialized; }

    std::string GetErrorMessage(int code) const;
    // Frees parser, context, frame and packet; safe to call twice.
    void Release();
    void SetCustomAvFrameData(std::shared_ptr<CustomAvFrameData> data) { customAvFrameData = std::move(data); }

protected:
    virtual int InitializeCore() = 0;
    virtual int InitializeStorage();
    virtual int AvcodecDecoding(const boost::shared_ptr<custom::Video>& msg, std::shared_ptr<YuvTextureData>& frame);
    // The next picture out of the codec into frame.
    int ReceivePicture(std::shared_ptr<YuvTextureData>& frame);
    virtual int CopyFrameToMemory(std::shared_ptr<YuvTextureData>& frame) = 0;
    virtual AVFrame* GetFrameInDecoder(std::shared_ptr<YuvTextureData> frame) const = 0;
    virtual int InitializeStructure();
    virtual int InitializeParser();
    virtual int Open();

    int InitializeHevcDecoder();
    int InitializeHevcDecoderContext();
    // Release(), then the message; returns initFailure.
    int Fail(const std::string& message);
    void LogError(const std::string& message) const;

    const AVCodec* codec = nullptr;
    AVCodecContext* codecContext = nullptr;
    AVCodecParserContext* parserContext = nullptr;
    AVPacket* packet = nullptr;
    AVFrame* frame = nullptr;
    std::shared_ptr<CustomAvFrameData> customAvFrameData;
    AVDictionary* options = nullptr;
    bool isInitialized = false;
    bool isDraining = false;
    std::string unknownErrorName = "UNKNOWN";
    std::map<int, std::string> errorNames;
};

} // namespace rviz_plugin

#endif

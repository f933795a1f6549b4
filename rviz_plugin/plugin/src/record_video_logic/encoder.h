#ifndef RVIZ_PLUGIN_ENCODER_H
#define RVIZ_PLUGIN_ENCODER_H

#include "frames/frame_converter.h"

#ifndef Q_MOC_RUN
#include <custom/AvFrame.h>
#endif

extern "C" {
#include <libavutil/rational.h>
}

#include <cstdint>
#include <string>

struct AVCodec;
struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVOutputFormat;
struct AVPacket;
struct AVStream;

namespace rviz_plugin {

// Writes pictures into a video file: Initialize (codec and muxer set up, no file yet), InitWriteHeader (the file
// is made), Encode per picture, Finished (the rest of the pictures and the trailer; the file is playable).
// Every picture is stamped one time base after the one before. Initialisation results: 1 success, -2 failure.
class Encoder {
public:
    static constexpr int initSuccess = 1;
    static constexpr int initFailure = -2;

    Encoder() = default;
    virtual ~Encoder();
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    // The file's extension chooses the container.
    bool Initialize(const std::string& fileName, int width, int height);
    // Names the file before InitWriteHeader makes it; the container stays the one Initialize chose.
    void SetFileName(const std::string& name) { fileName = name; }
    bool InitWriteHeader();
    bool Encode(const custom::AvFrame& source);
    bool Encode(const AVFrame* source);
    // Drains the codec, writes the trailer when the file was opened, and frees everything.
    void Finished();
    bool GetIsInitialized() const { return isInitialized; }

    void SetTimeBase(AVRational base) { timeBase = base; }
    // Pictures handed to the codec so far.
    int64_t GetFrameCount() const { return nextPts; }
    // The bit rate for a picture of width x height.
    static int64_t BitRateForSize(int width, int height);

protected:
    virtual int FindEncodeCtx() = 0;
    virtual void SetPixelFormat() = 0;
    virtual void SetFrameFormat(AVFrame* frame) = 0;
    virtual int InitializeHwDevice(AVCodecContext* context) = 0;
    // 0 when the picture (null: the end of the stream) and every packet it gave were written, else -1.
    virtual int WriteFrame(AVFrame* frame);
    virtual void Release();

    // Release(), then the message; returns initFailure.
    int Fail(const std::string& message);
    static void LogError(const std::string& message);
    static std::string FailureText(const std::string& what);

    AVStream* stream = nullptr;
    AVCodecContext* codecContext = nullptr;
    AVFrame* outputFrame = nullptr;
    AVPacket* packet = nullptr;
    int64_t nextPts = 0;
    AVFormatContext* formatContext = nullptr;
    const AVOutputFormat* outputFormat = nullptr;
    const AVCodec* codec = nullptr;
    AVRational timeBase{1, 30};
    int width = 0;
    int height = 0;
    bool isInitialized = false;

private:
    int InitializeStructure(const std::string& fileName);
    int InitializeFormatCtx(const std::string& fileName);
    int InitializeStream();
    int InitializeEncodeCtx();
    int SetEncodeCtx();
    int OpenAndWriteHeader(const std::string& fileName);
    int Open(const std::string& fileName);
    int AllocOutputFrame();
    int WriteStreamHeader();
    template <typename Source>
    bool ConvertAndEncode(const Source& source);
    bool EncodingAvFrame();
    bool HasFile() const;

    std::string fileName;
    bool headerWritten = false;
    FrameConverter converter;
};

} // namespace rviz_plugin

#endif

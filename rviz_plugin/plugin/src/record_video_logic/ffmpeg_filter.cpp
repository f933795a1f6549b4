#include "ffmpeg_filter.h"

#include "frames/extern_ffmpeg.h"

#include "foundation/logger.h"

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixfmt.h>
}

namespace rviz_plugin {

namespace {
const char* const logModule = "RecordVideoDataTool";
constexpr int keepReference = 8; // AV_BUFFERSRC_FLAG_KEEP_REF: the stream's picture stays usable

void LogError(const std::string& message)
{
    Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Error, message);
}

std::string FailureText(const std::string& what)
{
    return "Failed to initialize the filter: " + what + ". Memory may be insufficient. Release memory and restart Orsa.";
}
} // namespace

FfmpegFilter::~FfmpegFilter()
{
    Clear();
}

std::string FfmpegFilter::TransformToFilterArgs(const FrameType& type)
{
    return "video_size=" + std::to_string(type.width) + "x" + std::to_string(type.height) +
           ":pix_fmt=" + std::to_string(type.pixelFormat) + ":time_base=" + std::to_string(type.timeBaseNumerator) +
           "/" + std::to_string(type.timeBaseDenominator) + ":pixel_aspect=" + std::to_string(type.aspectNumerator) +
           "/" + std::to_string(type.aspectDenominator);
}

std::string FfmpegFilter::ConstructFilterDescription(const std::string& first, const std::string& second)
{
    return "[" + first + "]" + "[" + second + "]" + "overlay=0:0" + "[out]";
}

bool FfmpegFilter::Initialize(std::pair<int, int> pictureSize)
{
    Clear();
    isInitialized = InitializeStructure(pictureSize);
    if (isInitialized) {
        size = pictureSize;
    } else {
        Clear();
    }
    return isInitialized;
}

bool FfmpegFilter::Fail(const std::string& what)
{
    LogError(FailureText(what));
    return false;
}

bool FfmpegFilter::InitializeStructure(std::pair<int, int> pictureSize)
{
    AVFilterInOut* sinkInOut = nullptr;
    AVFilterInOut* sourceInOuts = nullptr;
    FrameType video;
    video.width = pictureSize.first;
    video.height = pictureSize.second;
    video.pixelFormat = AV_PIX_FMT_YUV420P;
    FrameType overlay = video;
    overlay.pixelFormat = AV_PIX_FMT_BGRA;
    inputStreams[StreamType::Video].type = video;
    inputStreams[StreamType::Overlay].type = overlay;

    bool built = InitFilter(sinkInOut);
    if (built) {
        outputFrame = ExternAvFrameAlloc();
        built = outputFrame != nullptr || Fail("AVFrame");
    }
    built = built && CreateInputStream(sourceInOuts) && SetFilterGraph(sinkInOut, sourceInOuts);
    ExternAvfilterInoutFree(&sinkInOut);
    ExternAvfilterInoutFree(&sourceInOuts);
    return built;
}

bool FfmpegFilter::InitFilter(AVFilterInOut*& sinkInOut)
{
    const AVFilter* bufferSink = ExternAvfilterGetByName("buffersink");
    sinkInOut = ExternAvfilterInoutAlloc();
    if (sinkInOut == nullptr) {
        return Fail("AVFilterInOut");
    }
    filterGraph = ExternAvfilterGraphAlloc();
    if (filterGraph == nullptr) {
        return Fail("AVFilterGraph");
    }
    if (bufferSink == nullptr ||
        ExternAvfilterGraphCreateFilter(&sinkContext, bufferSink, "out", nullptr, nullptr, filterGraph) < 0) {
        return Fail("AVFilterContext(bufferSink)");
    }
    sinkInOut->name = ExternAvStrdup("out");
    sinkInOut->filter_ctx = sinkContext;
    sinkInOut->pad_idx = 0;
    sinkInOut->next = nullptr;
    const int formats[] = {AV_PIX_FMT_YUV420P, AV_PIX_FMT_NONE};
    if (ExternAvOptSetIntList(sinkContext, "pix_fmts", formats, AV_PIX_FMT_NONE, AV_OPT_SEARCH_CHILDREN) < 0) {
        return Fail("Set output pixel format");
    }
    return true;
}

AVFrame* FfmpegFilter::AllocFrame(const FrameType& type)
{
    AVFrame* frame = ExternAvFrameAlloc();
    if (frame == nullptr) {
        return nullptr;
    }
    frame->width = type.width;
    frame->height = type.height;
    frame->format = type.pixelFormat;
    if (ExternAvFrameGetBuffer(frame, 0) < 0) {
        ExternAvFrameFree(&frame);
    }
    return frame;
}

bool FfmpegFilter::CreateInputStream(AVFilterInOut*& sourceInOuts)
{
    const AVFilter* bufferSource = ExternAvfilterGetByName("buffer");
    AVFilterInOut** tail = &sourceInOuts;
    int number = 0;
    for (auto& [type, stream] : inputStreams) {
        stream.name = "in" + std::to_string(number++);
        stream.frame = AllocFrame(stream.type);
        stream.converter = std::make_unique<FrameConverter>();
        AVFilterInOut* entry = ExternAvfilterInoutAlloc();
        if (bufferSource == nullptr || stream.frame == nullptr || entry == nullptr ||
            ExternAvfilterGraphCreateFilter(&stream.source, bufferSource, stream.name.c_str(),
                                            TransformToFilterArgs(stream.type).c_str(), nullptr, filterGraph) < 0) {
            ExternAvfilterInoutFree(&entry);
            return Fail("AVFilterContext(bufferSrc)");
        }
        entry->name = ExternAvStrdup(stream.name.c_str());
        entry->filter_ctx = stream.source;
        entry->pad_idx = 0;
        entry->next = nullptr;
        *tail = entry;
        tail = &entry->next;
    }
    return true;
}

bool FfmpegFilter::SetFilterGraph(AVFilterInOut*& sinkInOut, AVFilterInOut*& sourceInOuts)
{
    const std::string description = ConstructFilterDescription(inputStreams[StreamType::Video].name,
                                                               inputStreams[StreamType::Overlay].name);
    // The graph's open inputs are what the sink takes, its open outputs what the sources give.
    if (ExternAvfilterGraphParsePtr(filterGraph, description.c_str(), &sinkInOut, &sourceInOuts, nullptr) < 0) {
        return Fail("Parse graph");
    }
    if (ExternAvfilterGraphConfig(filterGraph, nullptr) < 0) {
        return Fail("Config graph");
    }
    return true;
}

int FfmpegFilter::OverlayMsg(const custom::AvFrame& video, const custom::AvFrame& overlay)
{
    if (AddFrame(StreamType::Video, video) == filterError || AddFrame(StreamType::Overlay, overlay) == filterError) {
        return filterError;
    }
    return Overlapping();
}

int FfmpegFilter::AddFrame(StreamType type, const custom::AvFrame& msg)
{
    const auto found = inputStreams.find(type);
    if (!isInitialized || found == inputStreams.end()) {
        return filterError;
    }
    InputStream& stream = found->second;
    if (!stream.converter->ConvertVideoFrame(msg, stream.frame)) {
        LogError(std::string("Failed to convert video frame. FFmpeg error type: ") + std::to_string(filterError) +
                 userGuideHint);
        return filterError;
    }
    return 0;
}

int FfmpegFilter::Overlapping()
{
    if (!isInitialized) {
        return filterError;
    }
    ExternAvFrameUnref(outputFrame);
    for (auto& [type, stream] : inputStreams) {
        stream.frame->pts = nextPts;
        const int added = ExternAvBuffersrcAddFrameFlags(stream.source, stream.frame, keepReference);
        if (added < 0) {
            LogError("Failed to feed the filter graph. FFmpeg error type: " + std::to_string(added) + userGuideHint);
            Clear();
            return filterError;
        }
    }
    ++nextPts;
    const int received = ExternAvBuffersinkGetFrame(sinkContext, outputFrame);
    if (received == AVERROR(EAGAIN) || received == AVERROR_EOF) {
        ExternAvFrameUnref(outputFrame);
        return noPictureYet;
    }
    if (received < 0) {
        LogError("Failed to get frame from buffer sink. FFmpeg error type: " + std::to_string(received) +
                 userGuideHint);
        Clear();
        return filterError;
    }
    return pictureReady;
}

void FfmpegFilter::Clear()
{
    ExternAvfilterGraphFree(&filterGraph);
    sinkContext = nullptr;
    for (auto& [type, stream] : inputStreams) {
        ExternAvFrameFree(&stream.frame);
    }
    inputStreams.clear();
    ExternAvFrameFree(&outputFrame);
    nextPts = 0;
    isInitialized = false;
    size = {0, 0};
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_FFMPEG_FILTER_H
#define RVIZ_PLUGIN_FFMPEG_FILTER_H

#include "frames/frame_converter.h"

#ifndef Q_MOC_RUN
#include <custom/AvFrame.h>
#endif

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

struct AVFilterContext;
struct AVFilterGraph;
struct AVFilterInOut;
struct AVFrame;

namespace rviz_plugin {

enum class StreamType { Video = 0, Overlay = 1 };

// What a buffer source of the graph is told about its pictures.
struct FrameType {
    int width = 0;
    int height = 0;
    int pixelFormat = 0;
    int timeBaseNumerator = 1;
    int timeBaseDenominator = 30;
    int aspectNumerator = 1;
    int aspectDenominator = 1;
};

// Lays the overlay picture (BGRA, with transparency) over the camera picture with an FFmpeg filter graph:
// "[in0][in1]overlay=0:0[out]", out in YUV420P. Built for one picture size; another size needs Clear() and
// Initialize() again. Overlapping results: 0 a picture is out, 2 none yet, -1 error.
class FfmpegFilter {
public:
    static constexpr int pictureReady = 0;
    static constexpr int noPictureYet = 2;
    static constexpr int filterError = -1;

    FfmpegFilter() = default;
    ~FfmpegFilter();
    FfmpegFilter(const FfmpegFilter&) = delete;
    FfmpegFilter& operator=(const FfmpegFilter&) = delete;

    bool Initialize(std::pair<int, int> size);
    int OverlayMsg(const custom::AvFrame& video, const custom::AvFrame& overlay);
    const AVFrame* GetOutputFrame() const { return outputFrame; }
    bool GetIsInitialized() const { return isInitialized; }
    std::pair<int, int> GetSize() const { return size; }
    int AddFrame(StreamType type, const custom::AvFrame& msg);
    int Overlapping();
    void Clear();

    static std::string TransformToFilterArgs(const FrameType& type);
    static std::string ConstructFilterDescription(const std::string& first, const std::string& second);

private:
    struct InputStream {
        AVFilterContext* source = nullptr;
        AVFrame* frame = nullptr;
        std::string name;
        FrameType type;
        std::unique_ptr<FrameConverter> converter;
    };

    bool InitializeStructure(std::pair<int, int> pictureSize);
    bool InitFilter(AVFilterInOut*& sinkInOut);
    bool CreateInputStream(AVFilterInOut*& sourceInOuts);
    bool SetFilterGraph(AVFilterInOut*& sinkInOut, AVFilterInOut*& sourceInOuts);
    static AVFrame* AllocFrame(const FrameType& type);
    bool Fail(const std::string& what);

    AVFilterGraph* filterGraph = nullptr;
    AVFilterContext* sinkContext = nullptr;
    std::map<StreamType, InputStream> inputStreams;
    AVFrame* outputFrame = nullptr;
    int64_t nextPts = 0;
    bool isInitialized = false;
    std::pair<int, int> size{0, 0};
};

} // namespace rviz_plugin

#endif

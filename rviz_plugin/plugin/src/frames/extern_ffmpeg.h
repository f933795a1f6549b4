#ifndef RVIZ_PLUGIN_EXTERN_FFMPEG_H
#define RVIZ_PLUGIN_EXTERN_FFMPEG_H

// The one door to FFmpeg: plain forwarding functions with C linkage, one per FFmpeg call.
// Decoding, encoding, muxing, filtering, scaling and hardware classes call only these names.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavfilter/avfilter.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/hwcontext.h>
#include <libavutil/log.h>
#include <libswscale/swscale.h>

void ExternAvParserClose(AVCodecParserContext* s);
AVCodecParserContext* ExternAvParserInit(int codecId);
int ExternAvParserParse2(AVCodecParserContext* s, AVCodecContext* avctx, uint8_t** poutbuf, int* poutbufSize,
                         const uint8_t* buf, int bufSize, int64_t pts, int64_t dts, int64_t pos);

void ExternAvcodecFreeContext(AVCodecContext** avctx);
AVCodecContext* ExternAvcodecAllocContext3(const AVCodec* codec);
int ExternAvcodecOpen2(AVCodecContext* avctx, const AVCodec* codec, AVDictionary** options);

void ExternAvFrameFree(AVFrame** frame);
AVFrame* ExternAvFrameAlloc(void);
int ExternAvFrameCopy(AVFrame* dst, const AVFrame* src);
void ExternAvFrameMoveRef(AVFrame* dst, AVFrame* src);
int ExternAvFrameGetBuffer(AVFrame* frame, int align);
void ExternAvFrameUnref(AVFrame* frame);

void ExternAvPacketFree(AVPacket** pkt);
AVPacket* ExternAvPacketAlloc(void);
void ExternAvPacketUnref(AVPacket* pkt);

const AVCodec* ExternAvcodecFindDecoder(enum AVCodecID id);
const AVCodec* ExternAvCodecFindDecoderByName(const char* name);

int ExternAvcodecSendPacket(AVCodecContext* avctx, const AVPacket* avpkt);
int ExternAvcodecReceiveFrame(AVCodecContext* avctx, AVFrame* frame);
const AVCodecHWConfig* ExternAvcodecGetHwConfig(const AVCodec* codec, int index);

struct SwsContext* ExternSwsGetContext(int srcW, int srcH, enum AVPixelFormat srcFormat, int dstW, int dstH,
                                       enum AVPixelFormat dstFormat, int flags, SwsFilter* srcFilter,
                                       SwsFilter* dstFilter, const double* param);
int ExternSwsScale(struct SwsContext* c, const uint8_t* const srcSlice[], const int srcStride[], int srcSliceY,
                   int srcSliceH, uint8_t* const dst[], const int dstStride[]);
void ExternSwsFreeContext(struct SwsContext* swsContext);

int ExternAvHwdeviceCtxCreate(AVBufferRef** deviceCtx, enum AVHWDeviceType type, const char* device,
                              AVDictionary* opts, int flags);
void ExternAvBufferUnref(AVBufferRef** buf);
AVBufferRef* ExternAvBufferRef(const AVBufferRef* buf);
int ExternAvHwframeTransferData(AVFrame* dst, const AVFrame* src, int flags);
AVBufferRef* ExternAvHwframeCtxAlloc(AVBufferRef* deviceCtx);
int ExternAvHwframeCtxInit(AVBufferRef* ref);

int ExternAvHwframeGetBuffer(AVBufferRef* hwframeCtx, AVFrame* frame, int flags);

const AVCodec* ExternAvcodecFindEncoder(enum AVCodecID id);
const AVCodec* ExternAvcodecFindEncoderByName(const char* name);
int ExternAvcodecSendFrame(AVCodecContext* avctx, const AVFrame* frame);
int ExternAvcodecReceivePacket(AVCodecContext* avctx, AVPacket* avpkt);
void ExternAvPacketRescaleTs(AVPacket* pkt, AVRational tbSrc, AVRational tbDst);
int ExternAvcodecParametersFromContext(AVCodecParameters* par, const AVCodecContext* codec);

int ExternAvformatAllocOutputContext2(AVFormatContext** ctx, const AVOutputFormat* oformat, const char* formatName,
                                      const char* filename);
AVStream* ExternAvformatNewStream(AVFormatContext* s, const AVCodec* c);
void ExternAvformatFreeContext(AVFormatContext* s);
int ExternAvioOpen(AVIOContext** s, const char* url, int flags);
int ExternAvioClosep(AVIOContext** s);
int ExternAvformatWriteHeader(AVFormatContext* s, AVDictionary** options);
int ExternAvInterleavedWriteFrame(AVFormatContext* s, AVPacket* pkt);
int ExternAvWriteTrailer(AVFormatContext* s);

const AVFilter* ExternAvfilterGetByName(const char* name);
AVFilterInOut* ExternAvfilterInoutAlloc(void);
void ExternAvfilterInoutFree(AVFilterInOut** inout);
AVFilterGraph* ExternAvfilterGraphAlloc(void);
void ExternAvfilterGraphFree(AVFilterGraph** graph);
int ExternAvfilterGraphCreateFilter(AVFilterContext** filtCtx, const AVFilter* filt, const char* name,
                                    const char* args, void* opaque, AVFilterGraph* graphCtx);
int ExternAvfilterGraphParsePtr(AVFilterGraph* graph, const char* filters, AVFilterInOut** inputs,
                                AVFilterInOut** outputs, void* logCtx);
int ExternAvfilterGraphConfig(AVFilterGraph* graphctx, void* logCtx);
int ExternAvBuffersrcAddFrameFlags(AVFilterContext* bufferSrc, AVFrame* frame, int flags);
int ExternAvBuffersinkGetFrame(AVFilterContext* ctx, AVFrame* frame);
// The list ends at the first entry equal to term, which is not set.
int ExternAvOptSetIntList(void* obj, const char* name, const int* list, int term, int searchFlags);
char* ExternAvStrdup(const char* s);
int ExternAvOptSet(void* obj, const char* name, const char* val, int searchFlags);

struct SwsContext* ExternSwsGetCachedContext(struct SwsContext* context, int srcW, int srcH,
                                             enum AVPixelFormat srcFormat, int dstW, int dstH,
                                             enum AVPixelFormat dstFormat, int flags, SwsFilter* srcFilter,
                                             SwsFilter* dstFilter, const double* param);

void ExternAvLogSetLevel(int level);
int ExternAvDictSet(AVDictionary** pm, const char* key, const char* value, int flags);
void ExternAvDictFree(AVDictionary** pm);
}

namespace rviz_plugin {
// The ending of every log line that reports an FFmpeg error, behind its type.
constexpr const char* userGuideHint = ". See the KORA Application Visualizer User Guide for details.";
} // namespace rviz_plugin

#endif

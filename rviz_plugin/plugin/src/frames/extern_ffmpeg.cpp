#include "extern_ffmpeg.h"

extern "C" {
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/mem.h>
#include <libavutil/opt.h>
}

extern "C" {

void ExternAvParserClose(AVCodecParserContext* s) { av_parser_close(s); }
AVCodecParserContext* ExternAvParserInit(int codecId) { return av_parser_init(codecId); }
int ExternAvParserParse2(AVCodecParserContext* s, AVCodecContext* avctx, uint8_t** poutbuf, int* poutbufSize,
                         const uint8_t* buf, int bufSize, int64_t pts, int64_t dts, int64_t pos)
{
    return av_parser_parse2(s, avctx, poutbuf, poutbufSize, buf, bufSize, pts, dts, pos);
}

void ExternAvcodecFreeContext(AVCodecContext** avctx) { avcodec_free_context(avctx); }
AVCodecContext* ExternAvcodecAllocContext3(const AVCodec* codec) { return avcodec_alloc_context3(codec); }
int ExternAvcodecOpen2(AVCodecContext* avctx, const AVCodec* codec, AVDictionary** options)
{
    return avcodec_open2(avctx, codec, options);
}

void ExternAvFrameFree(AVFrame** frame) { av_frame_free(frame); }
AVFrame* ExternAvFrameAlloc(void) { return av_frame_alloc(); }
int ExternAvFrameCopy(AVFrame* dst, const AVFrame* src) { return av_frame_copy(dst, src); }
void ExternAvFrameMoveRef(AVFrame* dst, AVFrame* src) { av_frame_move_ref(dst, src); }
int ExternAvFrameGetBuffer(AVFrame* frame, int align) { return av_frame_get_buffer(frame, align); }
void ExternAvFrameUnref(AVFrame* frame) { av_frame_unref(frame); }

void ExternAvPacketFree(AVPacket** pkt) { av_packet_free(pkt); }
AVPacket* ExternAvPacketAlloc(void) { return av_packet_alloc(); }
void ExternAvPacketUnref(AVPacket* pkt) { av_packet_unref(pkt); }

const AVCodec* ExternAvcodecFindDecoder(enum AVCodecID id) { return avcodec_find_decoder(id); }
const AVCodec* ExternAvCodecFindDecoderByName(const char* name) { return avcodec_find_decoder_by_name(name); }

int ExternAvcodecSendPacket(AVCodecContext* avctx, const AVPacket* avpkt) { return avcodec_send_packet(avctx, avpkt); }
int ExternAvcodecReceiveFrame(AVCodecContext* avctx, AVFrame* frame) { return avcodec_receive_frame(avctx, frame); }
const AVCodecHWConfig* ExternAvcodecGetHwConfig(const AVCodec* codec, int index)
{
    return avcodec_get_hw_config(codec, index);
}

struct SwsContext* ExternSwsGetContext(int srcW, int srcH, enum AVPixelFormat srcFormat, int dstW, int dstH,
                                       enum AVPixelFormat dstFormat, int flags, SwsFilter* srcFilter,
                                       SwsFilter* dstFilter, const double* param)
{
    return sws_getContext(srcW, srcH, srcFormat, dstW, dstH, dstFormat, flags, srcFilter, dstFilter, param);
}
int ExternSwsScale(struct SwsContext* c, const uint8_t* const srcSlice[], const int srcStride[], int srcSliceY,
                   int srcSliceH, uint8_t* const dst[], const int dstStride[])
{
    return sws_scale(c, srcSlice, srcStride, srcSliceY, srcSliceH, dst, dstStride);
}
void ExternSwsFreeContext(struct SwsContext* swsContext) { sws_freeContext(swsContext); }

int ExternAvHwdeviceCtxCreate(AVBufferRef** deviceCtx, enum AVHWDeviceType type, const char* device,
                              AVDictionary* opts, int flags)
{
    return av_hwdevice_ctx_create(deviceCtx, type, device, opts, flags);
}
void ExternAvBufferUnref(AVBufferRef** buf) { av_buffer_unref(buf); }
AVBufferRef* ExternAvBufferRef(const AVBufferRef* buf) { return av_buffer_ref(buf); }
int ExternAvHwframeTransferData(AVFrame* dst, const AVFrame* src, int flags)
{
    return av_hwframe_transfer_data(dst, src, flags);
}
AVBufferRef* ExternAvHwframeCtxAlloc(AVBufferRef* deviceCtx) { return av_hwframe_ctx_alloc(deviceCtx); }
int ExternAvHwframeCtxInit(AVBufferRef* ref) { return av_hwframe_ctx_init(ref); }

int ExternAvHwframeGetBuffer(AVBufferRef* hwframeCtx, AVFrame* frame, int flags)
{
    return av_hwframe_get_buffer(hwframeCtx, frame, flags);
}

const AVCodec* ExternAvcodecFindEncoder(enum AVCodecID id) { return avcodec_find_encoder(id); }
const AVCodec* ExternAvcodecFindEncoderByName(const char* name) { return avcodec_find_encoder_by_name(name); }
int ExternAvcodecSendFrame(AVCodecContext* avctx, const AVFrame* frame) { return avcodec_send_frame(avctx, frame); }
int ExternAvcodecReceivePacket(AVCodecContext* avctx, AVPacket* avpkt) { return avcodec_receive_packet(avctx, avpkt); }
void ExternAvPacketRescaleTs(AVPacket* pkt, AVRational tbSrc, AVRational tbDst) { av_packet_rescale_ts(pkt, tbSrc, tbDst); }
int ExternAvcodecParametersFromContext(AVCodecParameters* par, const AVCodecContext* codec)
{
    return avcodec_parameters_from_context(par, codec);
}

int ExternAvformatAllocOutputContext2(AVFormatContext** ctx, const AVOutputFormat* oformat, const char* formatName,
                                      const char* filename)
{
    return avformat_alloc_output_context2(ctx, oformat, formatName, filename);
}
AVStream* ExternAvformatNewStream(AVFormatContext* s, const AVCodec* c) { return avformat_new_stream(s, c); }
void ExternAvformatFreeContext(AVFormatContext* s) { avformat_free_context(s); }
int ExternAvioOpen(AVIOContext** s, const char* url, int flags) { return avio_open(s, url, flags); }
int ExternAvioClosep(AVIOContext** s) { return avio_closep(s); }
int ExternAvformatWriteHeader(AVFormatContext* s, AVDictionary** options) { return avformat_write_header(s, options); }
int ExternAvInterleavedWriteFrame(AVFormatContext* s, AVPacket* pkt) { return av_interleaved_write_frame(s, pkt); }
int ExternAvWriteTrailer(AVFormatContext* s) { return av_write_trailer(s); }

const AVFilter* ExternAvfilterGetByName(const char* name) { return avfilter_get_by_name(name); }
AVFilterInOut* ExternAvfilterInoutAlloc(void) { return avfilter_inout_alloc(); }
void ExternAvfilterInoutFree(AVFilterInOut** inout) { avfilter_inout_free(inout); }
AVFilterGraph* ExternAvfilterGraphAlloc(void) { return avfilter_graph_alloc(); }
void ExternAvfilterGraphFree(AVFilterGraph** graph) { avfilter_graph_free(graph); }
int ExternAvfilterGraphCreateFilter(AVFilterContext** filtCtx, const AVFilter* filt, const char* name,
                                    const char* args, void* opaque, AVFilterGraph* graphCtx)
{
    return avfilter_graph_create_filter(filtCtx, filt, name, args, opaque, graphCtx);
}
int ExternAvfilterGraphParsePtr(AVFilterGraph* graph, const char* filters, AVFilterInOut** inputs,
                                AVFilterInOut** outputs, void* logCtx)
{
    return avfilter_graph_parse_ptr(graph, filters, inputs, outputs, logCtx);
}
int ExternAvfilterGraphConfig(AVFilterGraph* graphctx, void* logCtx) { return avfilter_graph_config(graphctx, logCtx); }
int ExternAvBuffersrcAddFrameFlags(AVFilterContext* bufferSrc, AVFrame* frame, int flags)
{
    return av_buffersrc_add_frame_flags(bufferSrc, frame, flags);
}
int ExternAvBuffersinkGetFrame(AVFilterContext* ctx, AVFrame* frame) { return av_buffersink_get_frame(ctx, frame); }
int ExternAvOptSetIntList(void* obj, const char* name, const int* list, int term, int searchFlags)
{
    int count = 0;
    while (list[count] != term) {
        ++count;
    }
    return av_opt_set_bin(obj, name, reinterpret_cast<const uint8_t*>(list), count * static_cast<int>(sizeof(*list)),
                          searchFlags);
}
char* ExternAvStrdup(const char* s) { return av_strdup(s); }
int ExternAvOptSet(void* obj, const char* name, const char* val, int searchFlags)
{
    return av_opt_set(obj, name, val, searchFlags);
}

struct SwsContext* ExternSwsGetCachedContext(struct SwsContext* context, int srcW, int srcH,
                                             enum AVPixelFormat srcFormat, int dstW, int dstH,
                                             enum AVPixelFormat dstFormat, int flags, SwsFilter* srcFilter,
                                             SwsFilter* dstFilter, const double* param)
{
    return sws_getCachedContext(context, srcW, srcH, srcFormat, dstW, dstH, dstFormat, flags, srcFilter, dstFilter,
                                param);
}

void ExternAvLogSetLevel(int level) { av_log_set_level(level); }
int ExternAvDictSet(AVDictionary** pm, const char* key, const char* value, int flags)
{
    return av_dict_set(pm, key, value, flags);
}
void ExternAvDictFree(AVDictionary** pm) { av_dict_free(pm); }
}

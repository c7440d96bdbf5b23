// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavcodec/bsf.h>
#include <libavfilter/avfilter.h>
#include <libavformat/avformat.h>
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

/// Owning handles of FFmpeg's objects. Nothing else in the engine frees one of them.
namespace reelsmith::media {

struct FFmpegDeleter {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVCodecParameters* parameters) const { avcodec_parameters_free(&parameters); }
    void operator()(AVBSFContext* context) const { av_bsf_free(&context); }
    void operator()(AVFilterGraph* graph) const { avfilter_graph_free(&graph); }
    void operator()(SwrContext* context) const { swr_free(&context); }
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};

using FrameHandle = std::unique_ptr<AVFrame, FFmpegDeleter>;
using PacketHandle = std::unique_ptr<AVPacket, FFmpegDeleter>;
using CodecHandle = std::unique_ptr<AVCodecContext, FFmpegDeleter>;
using CodecParametersHandle = std::unique_ptr<AVCodecParameters, FFmpegDeleter>;
using BitstreamFilterHandle = std::unique_ptr<AVBSFContext, FFmpegDeleter>;
using FilterGraphHandle = std::unique_ptr<AVFilterGraph, FFmpegDeleter>;
using ResamplerHandle = std::unique_ptr<SwrContext, FFmpegDeleter>;
using ScalerHandle = std::unique_ptr<SwsContext, FFmpegDeleter>;

/// A new empty frame or packet; running out of memory for so little ends the process.
FrameHandle makeFrame();
PacketHandle makePacket();

} // namespace reelsmith::media

// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoEncoder.h"

#include "media/H264Level.h"
#include "media/Limits.h"

#include <algorithm>
#include <cmath>
#include <string>

extern "C" {
#include <libavutil/opt.h>
}

namespace reelsmith::media {

namespace {

constexpr int groupSeconds = 5;

/// From this rate factor on a preset is one that shrinks its pictures.
constexpr double shrunkRateFactor = 24;

constexpr int longLookaheadPixels = 1280 * 720;

/// What `veryfast` does, with a longer view ahead: how much later pictures build on a block saves more than a
/// finer search. Half the usual adaptive quantisation, which spends bits on plain areas that the measure of
/// likeness (SSIM) hardly counts: the same likeness comes out a tenth smaller. The smaller presets look less
/// closely still: an eighth more bytes for a quarter less work. To spare memory fewer pictures wait to be
/// encoded and all threads work on the same one; of large pictures none is kept for others between it and the
/// next either.
std::string encoderParameters(const VideoEncoder::Settings& settings, int pixels) {
    const std::string always =
        "me=hex:aq-strength=0.5:bframes=4:b-adapt=0:subme=" + std::to_string(settings.rules.refinement);
    const std::string sparing = ":sync-lookahead=0:sliced-threads=1";
    if (pixels > largePixels)
        return always + sparing + ":rc-lookahead=4:b-pyramid=none";
    if (settings.sparesMemory)
        return always + sparing + ":rc-lookahead=12";
    return always + (pixels > longLookaheadPixels ? ":rc-lookahead=20" : ":rc-lookahead=30");
}

} // namespace

Result<std::unique_ptr<VideoEncoder>> VideoEncoder::open(const AVFrame& first, const Settings& settings) {
    const AVCodec* codec = avcodec_find_encoder_by_name("libx264");
    if (!codec)
        return failure(ErrorCode::Internal, "There is no H.264 encoder");
    CodecHandle context(avcodec_alloc_context3(codec));
    if (!context)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    context->width = first.width;
    context->height = first.height;
    context->pix_fmt = AV_PIX_FMT_YUV420P;
    context->sample_aspect_ratio = {1, 1};
    context->color_primaries = first.color_primaries;
    context->color_trc = first.color_trc;
    context->colorspace = first.colorspace;
    context->color_range = AVCOL_RANGE_MPEG;
    context->chroma_sample_location = AVCHROMA_LOC_LEFT;
    context->time_base = settings.timeBase;
    const double rate = std::clamp(settings.frameRate, 1.0, settings.rules.peakRate);
    context->framerate = av_d2q(rate, 100'000);
    context->gop_size = std::max(1, static_cast<int>(std::lround(rate * groupSeconds)));
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_CLOSED_GOP;
    const H264Level level = levelFor(first.width, first.height, rate);
    context->level = level.number;
    // Keeping watch over the rate costs a twentieth of the work, and shrunk pictures come near the level's
    // only when they are made of noise.
    if (settings.rules.rateFactor < shrunkRateFactor)
        context->rc_max_rate = context->rc_buffer_size = level.maximumBitRate;
    av_opt_set(context->priv_data, "preset", "veryfast", 0);
    av_opt_set(context->priv_data, "profile", "high", 0);
    av_opt_set_double(context->priv_data, "crf", settings.rules.rateFactor, 0);
    av_opt_set(context->priv_data, "x264-params",
               encoderParameters(settings, first.width * first.height).c_str(), 0);
    if (const int result = avcodec_open2(context.get(), codec, nullptr); result < 0)
        return ffmpegFailure(ErrorCode::Internal, "The H.264 encoder refuses", result);
    return std::unique_ptr<VideoEncoder>(new VideoEncoder(std::move(context)));
}

void VideoEncoder::remember(const AVFrame& frame) {
    // The time to the next frame is the truth; what a frame says of itself counts only for the last.
    if (!m_durations.empty()) {
        auto previous = std::prev(m_durations.end());
        previous->second = frame.pts - previous->first;
    }
    m_durations[frame.pts] = frame.pkt_duration;
}

Result<void> VideoEncoder::encode(FrameHandle frame, const std::function<Result<void>(PacketHandle)>& take) {
    if (frame) {
        remember(*frame);
        frame->pict_type = AV_PICTURE_TYPE_NONE;
    }
    if (const int result = avcodec_send_frame(m_context.get(), frame.get()); result < 0)
        return ffmpegFailure(ErrorCode::Internal, "Encoding", result);
    for (;;) {
        PacketHandle packet = makePacket();
        const int result = avcodec_receive_packet(m_context.get(), packet.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return {};
        if (result < 0)
            return ffmpegFailure(ErrorCode::Internal, "Encoding", result);
        if (const auto known = m_durations.find(packet->pts); known != m_durations.end()) {
            packet->duration = known->second;
            // The newest entry stays: the next frame gives it its length.
            if (std::next(known) != m_durations.end())
                m_durations.erase(known);
        }
        if (auto taken = take(std::move(packet)); !taken)
            return taken;
    }
}

} // namespace reelsmith::media

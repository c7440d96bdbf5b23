// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Decoder.h"

#include "media/Colour.h"
#include "media/Limits.h"

#include <algorithm>

namespace reelsmith::media {

Result<std::unique_ptr<Decoder>> Decoder::open(const AVStream* stream, const Options& options) {
    const AVCodec* codec = avcodec_find_decoder(stream->codecpar->codec_id);
    if (!codec)
        return failure(ErrorCode::Unsupported, "There is no decoder for " +
                                                   std::string(avcodec_get_name(stream->codecpar->codec_id)));
    CodecHandle context(avcodec_alloc_context3(codec));
    if (!context || avcodec_parameters_to_context(context.get(), stream->codecpar) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    context->pkt_timebase = stream->time_base;
    context->thread_count = options.threads;
    context->max_pixels = maximumPixels;
    if (options.loopFilter != LoopFilter::Whole)
        context->skip_loop_filter = options.loopFilter == LoopFilter::None ? AVDISCARD_ALL : AVDISCARD_NONREF;
    context->lowres = std::min<int>(options.halvings, codec->max_lowres);
    if (const int result = avcodec_open2(context.get(), codec, nullptr); result < 0)
        return ffmpegFailure(ErrorCode::InvalidSource, std::string("The decoder ") + codec->name + " refuses",
                             result);
    return std::unique_ptr<Decoder>(new Decoder(std::move(context), stream));
}

Result<void> Decoder::decode(const AVPacket* packet, const std::function<bool(FrameHandle)>& take) {
    int sent = AVERROR(EAGAIN);
    while (sent == AVERROR(EAGAIN)) {
        sent = avcodec_send_packet(m_context.get(), packet);
        if (sent == AVERROR(ENOMEM))
            return ffmpegFailure(ErrorCode::OutOfMemory, "Decoding", sent);
        if (sent < 0 && sent != AVERROR(EAGAIN) && sent != AVERROR_EOF)
            ++m_damagedCount;
        const Result<bool> goesOn = drain(take);
        if (!goesOn)
            return tl::unexpected(goesOn.error());
        if (!*goesOn)
            break;
    }
    return {};
}

Result<bool> Decoder::drain(const std::function<bool(FrameHandle)>& take) {
    // A decoder may report the damage of an earlier packet here and still hold good frames behind it.
    constexpr int maximumErrorsInARow = 100;
    for (int errors = 0; errors < maximumErrorsInARow;) {
        FrameHandle frame = makeFrame();
        const int received = avcodec_receive_frame(m_context.get(), frame.get());
        if (received == AVERROR(EAGAIN) || received == AVERROR_EOF)
            return true;
        if (received == AVERROR(ENOMEM))
            return ffmpegFailure(ErrorCode::OutOfMemory, "Decoding", received);
        if (received < 0) {
            ++m_damagedCount;
            ++errors;
            continue;
        }
        errors = 0;
        dropUnnamedColours(*frame);
        fillInColours(*frame, m_toldColours);
        // JPEG's grey says nothing of its range, which is always the full one.
        if (m_context->codec_id == AV_CODEC_ID_MJPEG && frame->color_range == AVCOL_RANGE_UNSPECIFIED)
            frame->color_range = AVCOL_RANGE_JPEG;
        if (!take(std::move(frame)))
            return false;
    }
    return true;
}

} // namespace reelsmith::media

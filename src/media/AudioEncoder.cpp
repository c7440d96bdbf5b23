// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/AudioEncoder.h"

namespace reelsmith::media {

Result<std::unique_ptr<AudioEncoder>> AudioEncoder::open(int sampleRate, int channels, int bitRate) {
    const AVCodec* codec = avcodec_find_encoder(AV_CODEC_ID_AAC);
    if (!codec)
        return failure(ErrorCode::Internal, "There is no AAC encoder");
    std::unique_ptr<AudioEncoder> encoder(new AudioEncoder);
    encoder->m_context.reset(avcodec_alloc_context3(codec));
    AVCodecContext* context = encoder->m_context.get();
    if (!context)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    context->sample_fmt = AV_SAMPLE_FMT_FLTP;
    context->sample_rate = sampleRate;
    context->time_base = {1, sampleRate};
    context->bit_rate = bitRate;
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    av_channel_layout_default(&context->ch_layout, channels);
    if (const int result = avcodec_open2(context, codec, nullptr); result < 0)
        return ffmpegFailure(ErrorCode::Internal, "The AAC encoder refuses", result);
    encoder->m_fifo.reset(av_audio_fifo_alloc(context->sample_fmt, channels, context->frame_size));
    if (!encoder->m_fifo)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    return encoder;
}

Result<void> AudioEncoder::encode(const AVFrame* samples,
                                  const std::function<Result<void>(PacketHandle)>& take) {
    const int frameSize = m_context->frame_size;
    if (samples) {
        auto* const* planes = reinterpret_cast<void* const*>(samples->extended_data);
        if (av_audio_fifo_write(m_fifo.get(), const_cast<void**>(planes), samples->nb_samples) <
            samples->nb_samples)
            return failure(ErrorCode::OutOfMemory, "Out of memory");
    }
    while (av_audio_fifo_size(m_fifo.get()) >= frameSize) {
        if (auto encoded = encodeWaiting(frameSize, take); !encoded)
            return encoded;
    }
    if (samples)
        return {};
    if (const int left = av_audio_fifo_size(m_fifo.get()); left > 0) {
        if (auto encoded = encodeWaiting(left, take); !encoded)
            return encoded;
    }
    return send(nullptr, take);
}

Result<void> AudioEncoder::encodeWaiting(int count, const std::function<Result<void>(PacketHandle)>& take) {
    FrameHandle frame = makeFrame();
    frame->format = m_context->sample_fmt;
    frame->sample_rate = m_context->sample_rate;
    frame->nb_samples = count;
    av_channel_layout_copy(&frame->ch_layout, &m_context->ch_layout);
    if (av_frame_get_buffer(frame.get(), 0) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    av_audio_fifo_read(m_fifo.get(), reinterpret_cast<void**>(frame->extended_data), count);
    frame->pts = m_position;
    m_position += count;
    return send(frame.get(), take);
}

Result<void> AudioEncoder::send(const AVFrame* frame, const std::function<Result<void>(PacketHandle)>& take) {
    if (const int result = avcodec_send_frame(m_context.get(), frame); result < 0)
        return ffmpegFailure(ErrorCode::Internal, "Encoding sound", result);
    for (;;) {
        PacketHandle packet = makePacket();
        const int result = avcodec_receive_packet(m_context.get(), packet.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return {};
        if (result < 0)
            return ffmpegFailure(ErrorCode::Internal, "Encoding sound", result);
        if (auto taken = take(std::move(packet)); !taken)
            return taken;
    }
}

} // namespace reelsmith::media

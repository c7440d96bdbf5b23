// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/TextConversion.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

extern "C" {
#include <libavutil/mem.h>
}

namespace reelsmith::media {

namespace {

/// Texts are placed to the millisecond.
constexpr AVRational textTimeBase{1, 1000};

constexpr int mostTextBytes = 32 * 1024;

} // namespace

Result<std::unique_ptr<TextConversion>> TextConversion::make(const Source& source, const Track& track,
                                                             double zeroSeconds, ExportContext& context) {
    std::unique_ptr<TextConversion> made(new TextConversion(track, zeroSeconds, context));
    if (auto opened = made->openCodecs(source.track(track.index)); !opened)
        return tl::unexpected(opened.error());
    if (auto described = made->describe(track); !described)
        return tl::unexpected(described.error());
    return made;
}

Result<void> TextConversion::openCodecs(const AVStream* stream) {
    const AVCodec* decoder = avcodec_find_decoder(stream->codecpar->codec_id);
    const AVCodec* encoder = avcodec_find_encoder(AV_CODEC_ID_MOV_TEXT);
    if (!decoder || !encoder)
        return failure(ErrorCode::Unsupported, "There is no way to convert these subtitles");
    m_decoder.reset(avcodec_alloc_context3(decoder));
    m_encoder.reset(avcodec_alloc_context3(encoder));
    if (!m_decoder || !m_encoder || avcodec_parameters_to_context(m_decoder.get(), stream->codecpar) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    m_decoder->pkt_timebase = stream->time_base;
    if (const int result = avcodec_open2(m_decoder.get(), decoder, nullptr); result < 0)
        return ffmpegFailure(ErrorCode::Unsupported, "Reading subtitles", result);
    m_encoder->time_base = textTimeBase;
    if (m_decoder->subtitle_header_size > 0) {
        const auto size = static_cast<std::size_t>(m_decoder->subtitle_header_size);
        m_encoder->subtitle_header = static_cast<std::uint8_t*>(av_mallocz(size + 1));
        if (!m_encoder->subtitle_header)
            return failure(ErrorCode::OutOfMemory, "Out of memory");
        std::memcpy(m_encoder->subtitle_header, m_decoder->subtitle_header, size);
        m_encoder->subtitle_header_size = m_decoder->subtitle_header_size;
    }
    if (const int result = avcodec_open2(m_encoder.get(), encoder, nullptr); result < 0)
        return ffmpegFailure(ErrorCode::Unsupported, "Writing subtitles", result);
    return {};
}

Result<void> TextConversion::describe(const Track& track) {
    Mp4Writer::TrackDescription description;
    description.codec.reset(avcodec_parameters_alloc());
    if (!description.codec || avcodec_parameters_from_context(description.codec.get(), m_encoder.get()) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    description.timeBase = textTimeBase;
    description.language = track.language;
    m_outputTrack = m_context.writer.reserveTrack();
    return m_context.writer.describeTrack(m_outputTrack, std::move(description));
}

void TextConversion::take(PacketHandle packet) {
    AVSubtitle text{};
    int hasText = 0;
    const int result = avcodec_decode_subtitle2(m_decoder.get(), &text, &hasText, packet.get());
    if (result >= 0 && hasText) {
        if (auto written = write(text, *packet); !written) {
            if (written.error().code == ErrorCode::WriteFailed)
                m_context.latch.fail(written.error());
            else
                m_context.warn("a subtitle left out: " + written.error().text);
        }
    }
    avsubtitle_free(&text);
}

Result<void> TextConversion::write(const AVSubtitle& text, const AVPacket& source) {
    const double began =
        source.pts != AV_NOPTS_VALUE ? static_cast<double>(source.pts) * av_q2d(m_timeBase) : 0;
    const double start = began + text.start_display_time / 1000.0 - m_zeroSeconds;
    const bool saysEnd =
        text.end_display_time > text.start_display_time && text.end_display_time != UINT32_MAX;
    const double end = start + (saysEnd ? (text.end_display_time - text.start_display_time) / 1000.0
                                        : static_cast<double>(source.duration) * av_q2d(m_timeBase));
    if ((start < 0 && end <= 0) || text.num_rects == 0)
        return {};
    PacketHandle packet = makePacket();
    if (av_new_packet(packet.get(), mostTextBytes) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    const int size = avcodec_encode_subtitle(m_encoder.get(), packet->data, packet->size, &text);
    if (size < 0)
        return ffmpegFailure(ErrorCode::Unsupported, "Writing subtitles", size);
    av_shrink_packet(packet.get(), size);
    packet->pts = packet->dts = std::llround(std::max(0.0, start) / av_q2d(textTimeBase));
    packet->duration = std::llround(end / av_q2d(textTimeBase)) - packet->pts;
    packet->flags |= AV_PKT_FLAG_KEY;
    return m_context.writer.write(m_outputTrack, std::move(packet));
}

} // namespace reelsmith::media

// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/TrackCopy.h"

#include <cmath>
#include <string>
#include <string_view>
#include <utility>

namespace reelsmith::media {

namespace {

const char* const parametersFilter = "extract_extradata";

/// What brings a codec's packets into the form that MP4 keeps them in; null where they are.
const char* filterFor(const AVStream* stream) {
    switch (stream->codecpar->codec_id) {
    case AV_CODEC_ID_AAC:
        return stream->codecpar->extradata_size == 0 ? "aac_adtstoasc" : nullptr;
    case AV_CODEC_ID_MPEG4:
        return "mpeg4_unpack_bframes";
    case AV_CODEC_ID_H264:
    case AV_CODEC_ID_HEVC:
        return stream->codecpar->extradata_size == 0 ? parametersFilter : nullptr;
    default:
        return nullptr;
    }
}

// In a configuration as MP4 has it, whose version is 1, or in a byte stream, which begins with 00 00 01 or
// 00 00 00 01. From anything else the muxer makes an empty configuration.
bool areParameters(const AVCodecParameters* codec) {
    if (codec->codec_id != AV_CODEC_ID_H264 && codec->codec_id != AV_CODEC_ID_HEVC)
        return true;
    const std::string_view bytes(reinterpret_cast<const char*>(codec->extradata),
                                 static_cast<std::size_t>(codec->extradata_size));
    return bytes.starts_with('\1') || bytes.starts_with(std::string_view("\0\0\1", 3)) ||
           bytes.starts_with(std::string_view("\0\0\0\1", 4));
}

Error lackOfParameters() {
    return {ErrorCode::InvalidSource, "The video does not say how its pictures are made"};
}

} // namespace

TrackCopy::TrackCopy(const Track& track, double zeroSeconds, ExportContext& context)
    : m_context(context),
      m_timeBase(track.timeBase),
      m_zero(std::llround(zeroSeconds / av_q2d(track.timeBase))),
      m_isVideo(track.kind == TrackKind::Video) {}

Result<std::unique_ptr<TrackCopy>> TrackCopy::make(const Source& source, const Track& track,
                                                   double zeroSeconds, ExportContext& context) {
    std::unique_ptr<TrackCopy> made(new TrackCopy(track, zeroSeconds, context));
    const AVStream* stream = source.track(track.index);
    if (stream->codecpar->extradata_size > 0 && !areParameters(stream->codecpar))
        return tl::unexpected(lackOfParameters());
    if (auto opened = made->openFilter(stream); !opened)
        return tl::unexpected(opened.error());
    if (auto described = made->describe(stream, track); !described)
        return tl::unexpected(described.error());
    return made;
}

Result<void> TrackCopy::openFilter(const AVStream* stream) {
    const char* name = filterFor(stream);
    if (!name)
        return {};
    m_lacksParameters = name == parametersFilter;
    AVBSFContext* context = nullptr;
    if (av_bsf_alloc(av_bsf_get_by_name(name), &context) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    m_filter.reset(context);
    if (avcodec_parameters_copy(context->par_in, stream->codecpar) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    context->time_base_in = stream->time_base;
    if (const int result = av_bsf_init(context); result < 0)
        return ffmpegFailure(ErrorCode::Unsupported, "Copying a track", result);
    return {};
}

Result<void> TrackCopy::describe(const AVStream* stream, const Track& track) {
    Mp4Writer::TrackDescription description;
    description.codec.reset(avcodec_parameters_alloc());
    const AVCodecParameters* codec = m_filter ? m_filter->par_out : stream->codecpar;
    if (!description.codec || avcodec_parameters_copy(description.codec.get(), codec) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    description.codec->codec_tag = codec->codec_id == AV_CODEC_ID_HEVC ? MKTAG('h', 'v', 'c', '1') : 0;
    if (stream->sample_aspect_ratio.num > 0)
        description.codec->sample_aspect_ratio = stream->sample_aspect_ratio;
    description.timeBase = stream->time_base;
    description.language = track.language;
    description.disposition =
        m_isVideo ? AV_DISPOSITION_DEFAULT : stream->disposition & AV_DISPOSITION_DEFAULT;
    description.isTurned = m_isVideo;
    description.displayMatrix = track.displayMatrix;
    m_outputTrack = m_context.writer.reserveTrack();
    return m_context.writer.describeTrack(m_outputTrack, std::move(description));
}

void TrackCopy::take(PacketHandle packet) {
    // A piece cut off by the end of the file is no frame.
    if (packet->flags & AV_PKT_FLAG_CORRUPT)
        return;
    // What comes before the first key frame shows as grey mush.
    m_hasKeyFrame = m_hasKeyFrame || !m_isVideo || (packet->flags & AV_PKT_FLAG_KEY);
    if (!m_hasKeyFrame)
        return;
    if (packet->pts == AV_NOPTS_VALUE)
        packet->pts = packet->dts;
    if (packet->pts != AV_NOPTS_VALUE)
        packet->pts -= m_zero;
    if (packet->dts != AV_NOPTS_VALUE)
        packet->dts -= m_zero;
    if (auto passed = pass(packet.get()); !passed)
        m_context.latch.fail(passed.error());
}

void TrackCopy::end() {
    if (auto passed = pass(nullptr); !passed)
        m_context.latch.fail(passed.error());
    // No player opens a file without them.
    if (m_lacksParameters)
        m_context.latch.fail(lackOfParameters());
    if (m_damagedCount > 0)
        m_context.warn(std::to_string(m_damagedCount) + " damaged pieces left out of a copied track");
}

Result<void> TrackCopy::pass(AVPacket* packet) {
    if (!m_filter) {
        if (!packet)
            return {};
        PacketHandle moved = makePacket();
        av_packet_move_ref(moved.get(), packet);
        return m_context.writer.write(m_outputTrack, std::move(moved));
    }
    int result = av_bsf_send_packet(m_filter.get(), packet);
    while (result >= 0) {
        PacketHandle filtered = makePacket();
        result = av_bsf_receive_packet(m_filter.get(), filtered.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return {};
        if (result < 0)
            break;
        if (av_packet_get_side_data(filtered.get(), AV_PKT_DATA_NEW_EXTRADATA, nullptr))
            m_lacksParameters = false;
        // It need no longer be what stands in the source.
        filtered->pos = -1;
        if (auto written = m_context.writer.write(m_outputTrack, std::move(filtered)); !written)
            return written;
    }
    if (result == AVERROR(ENOMEM))
        return ffmpegFailure(ErrorCode::OutOfMemory, "Copying a track", result);
    // What the filter refuses is damaged; what follows need not be.
    ++m_damagedCount;
    return {};
}

} // namespace reelsmith::media

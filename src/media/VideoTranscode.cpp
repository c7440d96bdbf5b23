// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoTranscode.h"

#include "media/Limits.h"

#include <algorithm>
#include <string>
#include <thread>
#include <utility>

namespace reelsmith::media {

namespace {

constexpr std::size_t waitingPackets = 64;

bool isLarge(const Track& track) {
    return std::int64_t{track.width} * track.height > largePixels;
}

/// Of large pictures none waits but the next.
std::size_t waitingFrames(const Track& track) {
    return isLarge(track) ? 1 : 4;
}

/// Threads share a decoder's work at a price. H.264 up to HD leaves some processors to the other stages,
/// which run at the same time and have as much to do; more than four threads only cost memory.
int decoderThreads(const Track& track) {
    const int processors = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    const bool isLight = track.codec == AV_CODEC_ID_H264 && !isLarge(track);
    return std::clamp(isLight ? processors / 2 : processors, 1, 4);
}

/// From this much smaller a picture on, an unfiltered block edge here and there is out of sight.
constexpr double reductionThatHidesEdges = 1.5;

double usableFrameRate(const Track& track) {
    constexpr double unlikely = 240;
    return track.frameRate > 0 && track.frameRate <= unlikely ? track.frameRate : 25;
}

} // namespace

VideoTranscode::VideoTranscode(const Track& track, const ExportPlan& plan, const FrameClock::Settings& clock,
                               ExportContext& context)
    : m_context(context),
      m_rules(rulesOf(plan.preset)),
      m_frameRate(clock.frameRate),
      m_sparesMemory(isLarge(track)),
      m_clock(clock),
      m_deinterlacer(m_clock.timeBase()),
      m_converter(plan.video.scaled.width, plan.video.scaled.height, plan.video.orientation),
      m_packets(waitingPackets),
      m_decoded(waitingFrames(track)),
      m_converted(waitingFrames(track)) {}

VideoTranscode::~VideoTranscode() {
    m_packets.abandon();
    m_decoded.abandon();
    m_converted.abandon();
}

Result<std::unique_ptr<VideoTranscode>> VideoTranscode::make(const Source& source, const MediaInfo& info,
                                                             const ExportPlan& plan, ExportContext& context) {
    const Track& track = info.tracks[static_cast<std::size_t>(plan.video.track)];
    Decoder::Options options;
    options.threads = decoderThreads(track);
    const bool hasLoopFilter = track.codec == AV_CODEC_ID_H264 || track.codec == AV_CODEC_ID_HEVC;
    if (hasLoopFilter && plan.video.reduction >= reductionThatHidesEdges)
        options.loopFilter = Decoder::LoopFilter::ReferencedOnly;
    auto decoder = Decoder::open(source.track(track.index), options);
    if (!decoder)
        return tl::unexpected(decoder.error());
    const FrameClock::Settings clock{track.timeBase,      plan.zeroSeconds, usableFrameRate(track),
                                     plan.video.peakRate, info.hasClock,    track.lastSampleSeconds};
    std::unique_ptr<VideoTranscode> made(new VideoTranscode(track, plan, clock, context));
    made->m_decoder = std::move(*decoder);
    made->m_durationSeconds = info.durationSeconds();
    made->m_outputTrack = context.writer.reserveTrack();
    made->start();
    return made;
}

void VideoTranscode::start() {
    m_context.latch.onFailure([this] {
        m_packets.abandon();
        m_decoded.abandon();
        m_converted.abandon();
    });
    m_decoding = Stage(m_context.latch, [this] { return decodeAll(); });
    m_converting = Stage(m_context.latch, [this] { return convertAll(); });
    m_encoding = Stage(m_context.latch, [this] { return encodeAll(); });
}

void VideoTranscode::take(PacketHandle packet) {
    m_packets.push(std::move(packet));
}

void VideoTranscode::end() {
    m_packets.close();
}

void VideoTranscode::wait() {
    m_decoding.join();
    m_converting.join();
    m_encoding.join();
}

Result<void> VideoTranscode::decodeAll() {
    const auto pass = [this](FrameHandle frame) {
        const bool isUsable = !(frame->flags & AV_FRAME_FLAG_DISCARD) && frame->width > 0;
        return !isUsable || m_decoded.push(std::move(frame));
    };
    while (auto packet = m_packets.pop()) {
        if (auto decoded = m_decoder->decode(packet->get(), pass); !decoded)
            return decoded;
    }
    if (m_context.latch.hasFailed())
        return {};
    if (auto decoded = m_decoder->decode(nullptr, pass); !decoded)
        return decoded;
    if (m_decoder->damagedCount() > 0)
        m_context.warn(std::to_string(m_decoder->damagedCount()) + " damaged pieces of picture passed over");
    m_decoded.close();
    return {};
}

Result<void> VideoTranscode::convertAll() {
    Result<void> problem;
    const auto convert = [&](FrameHandle frame) {
        problem = convertOne(std::move(frame));
        return problem.has_value();
    };
    while (auto frame = m_decoded.pop()) {
        if (!m_clock.stamp(**frame))
            continue;
        m_end = m_clock.end();
        if (auto done = m_deinterlacer.process(std::move(*frame), convert); !done)
            return done;
        if (!problem)
            return problem;
    }
    if (m_context.latch.hasFailed())
        return {};
    if (auto done = m_deinterlacer.process(nullptr, convert); !done)
        return done;
    if (!problem)
        return problem;
    m_converted.close();
    return {};
}

Result<void> VideoTranscode::convertOne(FrameHandle frame) {
    if (!m_clock.keep(*frame))
        return {};
    auto converted = m_converter.convert(std::move(frame));
    if (!converted)
        return tl::unexpected(converted.error());
    if (m_durationSeconds > 0)
        m_context.report(static_cast<double>(m_end) * av_q2d(m_clock.timeBase()) / m_durationSeconds);
    m_converted.push(std::move(*converted));
    return {};
}

Result<void> VideoTranscode::openEncoder(const AVFrame& first) {
    auto encoder = VideoEncoder::open(first, {m_rules, m_clock.timeBase(), m_frameRate, m_sparesMemory});
    if (!encoder)
        return tl::unexpected(encoder.error());
    m_encoder = std::move(*encoder);
    Mp4Writer::TrackDescription description;
    description.codec.reset(avcodec_parameters_alloc());
    if (!description.codec ||
        avcodec_parameters_from_context(description.codec.get(), m_encoder->context()) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    description.timeBase = m_clock.timeBase();
    description.disposition = AV_DISPOSITION_DEFAULT;
    return m_context.writer.describeTrack(m_outputTrack, std::move(description));
}

Result<void> VideoTranscode::encodeAll() {
    const auto write = [this](PacketHandle packet) {
        return m_context.writer.write(m_outputTrack, std::move(packet));
    };
    // One picture is held back: only when the next one comes, or none, is it known how long it is shown.
    FrameHandle held;
    while (auto frame = m_converted.pop()) {
        if (!m_encoder) {
            if (auto opened = openEncoder(**frame); !opened)
                return opened;
        }
        if (held) {
            if (auto encoded = m_encoder->encode(std::move(held), write); !encoded)
                return encoded;
        }
        held = std::move(*frame);
    }
    if (m_context.latch.hasFailed())
        return {};
    if (!held)
        return failure(ErrorCode::InvalidSource, "No picture could be decoded");
    held->pkt_duration = std::max<std::int64_t>(1, m_end - held->pts);
    if (auto encoded = m_encoder->encode(std::move(held), write); !encoded)
        return encoded;
    return m_encoder->encode(nullptr, write);
}

} // namespace reelsmith::media

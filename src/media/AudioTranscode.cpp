// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/AudioTranscode.h"

#include <string>
#include <utility>

namespace reelsmith::media {

namespace {

constexpr std::size_t waitingPackets = 256;

} // namespace

AudioTranscode::AudioTranscode(const Track& track, const AudioPlan& plan, double zeroSeconds,
                               ExportContext& context)
    : m_context(context),
      m_placer(track.timeBase, zeroSeconds),
      m_mixer(plan.sampleRate, plan.channels),
      m_packets(waitingPackets) {}

AudioTranscode::~AudioTranscode() {
    m_packets.abandon();
}

Result<std::unique_ptr<AudioTranscode>> AudioTranscode::make(const Source& source, const Track& track,
                                                             const AudioPlan& plan, double zeroSeconds,
                                                             ExportContext& context) {
    auto decoder = Decoder::open(source.track(track.index), {});
    if (!decoder)
        return tl::unexpected(decoder.error());
    auto encoder = AudioEncoder::open(plan.sampleRate, plan.channels, plan.bitRate);
    if (!encoder)
        return tl::unexpected(encoder.error());
    std::unique_ptr<AudioTranscode> made(new AudioTranscode(track, plan, zeroSeconds, context));
    made->m_decoder = std::move(*decoder);
    made->m_encoder = std::move(*encoder);
    if (auto described = made->describe(track); !described)
        return tl::unexpected(described.error());
    made->m_stage = Stage(context.latch, [self = made.get()] { return self->run(); });
    // From here on it lives as long as the latch.
    context.latch.onFailure([self = made.get()] { self->m_packets.abandon(); });
    return made;
}

Result<void> AudioTranscode::describe(const Track& track) {
    Mp4Writer::TrackDescription description;
    description.codec.reset(avcodec_parameters_alloc());
    if (!description.codec ||
        avcodec_parameters_from_context(description.codec.get(), m_encoder->context()) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    description.timeBase = m_encoder->context()->time_base;
    description.language = track.language;
    description.disposition = AV_DISPOSITION_DEFAULT;
    m_outputTrack = m_context.writer.reserveTrack();
    return m_context.writer.describeTrack(m_outputTrack, std::move(description));
}

void AudioTranscode::take(PacketHandle packet) {
    m_packets.push(std::move(packet));
}

void AudioTranscode::end() {
    m_packets.close();
}

void AudioTranscode::wait() {
    m_stage.join();
}

Result<void> AudioTranscode::run() {
    bool isGood = true;
    const auto judge = [this, &isGood](const Result<void>& done) -> Result<void> {
        if (done || done.error().code == ErrorCode::WriteFailed ||
            done.error().code == ErrorCode::OutOfMemory)
            return done;
        m_context.warn("sound given up: " + done.error().text);
        isGood = false;
        return {};
    };
    while (auto packet = m_packets.pop()) {
        if (!isGood)
            continue;
        if (auto done = judge(transcode(packet->get())); !done)
            return done;
    }
    if (!isGood || m_context.latch.hasFailed())
        return {};
    if (auto done = judge(transcode(nullptr)); !done)
        return done;
    if (m_decoder->damagedCount() > 0)
        m_context.warn(std::to_string(m_decoder->damagedCount()) + " damaged pieces of sound passed over");
    return {};
}

Result<void> AudioTranscode::transcode(const AVPacket* packet) {
    Result<void> problem;
    const auto mixed = [this](const AVFrame& sound) { return mix(sound); };
    auto decoded = m_decoder->decode(packet, [&](FrameHandle frame) {
        problem = m_placer.place(std::move(frame), mixed);
        return problem.has_value();
    });
    if (!decoded)
        return decoded;
    if (!problem || packet)
        return problem;
    const auto rest = m_mixer.flush();
    if (!rest)
        return tl::unexpected(rest.error());
    const auto take = [this](PacketHandle made) { return write(std::move(made)); };
    if (*rest) {
        if (auto encoded = m_encoder->encode(rest->get(), take); !encoded)
            return encoded;
    }
    return m_encoder->encode(nullptr, take);
}

Result<void> AudioTranscode::mix(const AVFrame& sound) {
    const auto mixed = m_mixer.mix(sound);
    if (!mixed)
        return tl::unexpected(mixed.error());
    if (!*mixed)
        return {};
    return m_encoder->encode(mixed->get(), [this](PacketHandle made) { return write(std::move(made)); });
}

Result<void> AudioTranscode::write(PacketHandle packet) {
    return m_context.writer.write(m_outputTrack, std::move(packet));
}

} // namespace reelsmith::media

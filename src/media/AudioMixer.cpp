// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/AudioMixer.h"

#include "media/Downmix.h"
#include "media/Limiter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <new>
#include <optional>
#include <utility>

extern "C" {
#include <libavutil/opt.h>
}

namespace reelsmith::media {

namespace {

constexpr int maximumChannels = 64; // of libswresample

/// 36 dB over full scale: what lies beyond is no sound but the noise of a damaged file, and encoders refuse
/// it.
constexpr float loudestBelievable = 64;

/// A channel layout that owns its memory.
class ChannelLayout {
public:
    /// The places of `layout`, or the usual ones for as many channels where it names none.
    explicit ChannelLayout(const AVChannelLayout& layout) {
        if (layout.order == AV_CHANNEL_ORDER_UNSPEC)
            av_channel_layout_default(&m_layout, layout.nb_channels);
        else if (av_channel_layout_copy(&m_layout, &layout) < 0)
            throw std::bad_alloc();
    }
    ChannelLayout(const ChannelLayout&) = delete;
    ChannelLayout& operator=(const ChannelLayout&) = delete;
    ~ChannelLayout() { av_channel_layout_uninit(&m_layout); }

    AVChannelLayout& operator*() { return m_layout; }
    bool isSame(const ChannelLayout& other) const {
        return av_channel_layout_compare(&m_layout, &other.m_layout) == 0;
    }

private:
    AVChannelLayout m_layout{};
};

bool isSound(const AVFrame& frame) {
    return frame.nb_samples > 0 && frame.extended_data && frame.extended_data[0] && frame.format >= 0 &&
           frame.format < AV_SAMPLE_FMT_NB && frame.ch_layout.nb_channels > 0 &&
           frame.ch_layout.nb_channels <= maximumChannels && frame.sample_rate > 0 &&
           frame.sample_rate <= AudioMixer::maximumSampleRate;
}

void silenceNoise(float& sample) {
    // Written so that it also holds for what is not a number.
    if (!(std::abs(sample) <= loudestBelievable))
        sample = 0;
}

} // namespace

/// How sound of one kind is converted.
struct AudioMixer::Conversion {
    AVSampleFormat format;
    int sampleRate;
    ChannelLayout layout;
    ResamplerHandle resampler;
    std::optional<Limiter> limiter; ///< only where channels are folded
    int samplesToDrop = 0;          ///< of the silence that the limiter puts in front

    explicit Conversion(const AVFrame& sound)
        : format(static_cast<AVSampleFormat>(sound.format)),
          sampleRate(sound.sample_rate),
          layout(sound.ch_layout) {}

    bool fits(const AVFrame& sound) const {
        return format == sound.format && sampleRate == sound.sample_rate &&
               layout.isSame(ChannelLayout(sound.ch_layout));
    }
};

AudioMixer::AudioMixer(int sampleRate, int channels)
    : m_sampleRate(sampleRate), m_ready(static_cast<std::size_t>(channels)) {}

AudioMixer::~AudioMixer() = default;

Result<FrameHandle> AudioMixer::mix(const AVFrame& sound) {
    if (!isSound(sound))
        return failure(ErrorCode::Unsupported, "A frame of sound has an impossible format");
    if (!m_conversion || !m_conversion->fits(sound)) {
        if (auto drained = drain(); !drained)
            return tl::unexpected(drained.error());
        if (auto opened = open(sound); !opened)
            return tl::unexpected(opened.error());
    }
    if (auto converted = convert(const_cast<const std::uint8_t**>(sound.extended_data), sound.nb_samples);
        !converted)
        return tl::unexpected(converted.error());
    return takeReady();
}

Result<FrameHandle> AudioMixer::flush() {
    if (auto drained = drain(); !drained)
        return tl::unexpected(drained.error());
    return takeReady();
}

Result<void> AudioMixer::open(const AVFrame& sound) {
    auto conversion = std::make_unique<Conversion>(sound);
    AVChannelLayout& from = *conversion->layout;
    const int channels = static_cast<int>(m_ready.size());
    AVChannelLayout to{};
    av_channel_layout_default(&to, channels);
    SwrContext* resampler = nullptr;
    int result = swr_alloc_set_opts2(&resampler, &to, AV_SAMPLE_FMT_FLTP, m_sampleRate, &from,
                                     conversion->format, conversion->sampleRate, 0, nullptr);
    conversion->resampler.reset(resampler);
    if (result >= 0)
        result = av_opt_set_sample_fmt(resampler, "internal_sample_fmt", AV_SAMPLE_FMT_FLTP, 0);
    if (result >= 0 && av_channel_layout_compare(&from, &to) != 0)
        result = swr_set_matrix(resampler, downmixMatrix(from, channels).data(), from.nb_channels);
    if (result >= 0)
        result = swr_init(resampler);
    if (result < 0)
        return ffmpegFailure(ErrorCode::Unsupported, "Sound cannot be converted", result);
    if (from.nb_channels > channels) {
        conversion->limiter.emplace(m_sampleRate, channels);
        conversion->samplesToDrop = conversion->limiter->delaySamples();
    }
    m_conversion = std::move(conversion);
    return {};
}

Result<void> AudioMixer::drain() {
    if (!m_conversion)
        return {};
    auto converted = convert(nullptr, 0);
    if (converted && m_conversion->limiter) {
        const std::size_t start = m_ready[0].size();
        for (auto& channel : m_ready)
            channel.resize(start + static_cast<std::size_t>(m_conversion->limiter->delaySamples()));
        limit(start);
    }
    m_conversion.reset();
    return converted;
}

Result<void> AudioMixer::convert(const std::uint8_t** samples, int count) {
    const int room = swr_get_out_samples(m_conversion->resampler.get(), count);
    if (room < 0)
        return ffmpegFailure(ErrorCode::Internal, "Sound cannot be converted", room);
    const std::size_t start = m_ready[0].size();
    std::array<std::uint8_t*, 2> target{};
    for (std::size_t channel = 0; channel < m_ready.size(); ++channel) {
        m_ready[channel].resize(start + static_cast<std::size_t>(room));
        target[channel] = reinterpret_cast<std::uint8_t*>(m_ready[channel].data() + start);
    }
    const int converted = swr_convert(m_conversion->resampler.get(), target.data(), room, samples, count);
    for (auto& channel : m_ready) {
        channel.resize(start + static_cast<std::size_t>(std::max(converted, 0)));
        std::for_each(channel.begin() + static_cast<std::ptrdiff_t>(start), channel.end(), silenceNoise);
    }
    if (converted < 0)
        return ffmpegFailure(ErrorCode::Internal, "Sound cannot be converted", converted);
    if (m_conversion->limiter)
        limit(start);
    return {};
}

void AudioMixer::limit(std::size_t start) {
    std::array<float*, 2> channels{};
    for (std::size_t channel = 0; channel < m_ready.size(); ++channel)
        channels[channel] = m_ready[channel].data() + start;
    const int count = static_cast<int>(m_ready[0].size() - start);
    m_conversion->limiter->process(channels.data(), count);
    const int dropped = std::min(
        count, std::exchange(m_conversion->samplesToDrop, std::max(0, m_conversion->samplesToDrop - count)));
    for (auto& channel : m_ready) {
        const auto first = channel.begin() + static_cast<std::ptrdiff_t>(start);
        channel.erase(first, first + dropped);
    }
}

Result<FrameHandle> AudioMixer::takeReady() {
    if (m_ready[0].empty())
        return nullptr;
    FrameHandle frame = makeFrame();
    frame->format = AV_SAMPLE_FMT_FLTP;
    frame->sample_rate = m_sampleRate;
    frame->nb_samples = static_cast<int>(m_ready[0].size());
    av_channel_layout_default(&frame->ch_layout, static_cast<int>(m_ready.size()));
    if (const int result = av_frame_get_buffer(frame.get(), 0); result < 0)
        return ffmpegFailure(ErrorCode::OutOfMemory, "Sound cannot be held", result);
    for (std::size_t channel = 0; channel < m_ready.size(); ++channel) {
        std::memcpy(frame->extended_data[channel], m_ready[channel].data(),
                    m_ready[channel].size() * sizeof(float));
        m_ready[channel].clear();
    }
    return frame;
}

} // namespace reelsmith::media

// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/AudioMixer.h"

#include "media/Limiter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/samplefmt.h>
}

using namespace reelsmith::media;

namespace {

constexpr int sampleRate = 48000;

/// The sample number `index` of a channel, -1…1.
using Signal = std::function<double(int channel, int index)>;

void store(std::uint8_t* target, AVSampleFormat format, double value) {
    const auto put = [target](auto sample) { std::memcpy(target, &sample, sizeof sample); };
    switch (av_get_packed_sample_fmt(format)) {
    case AV_SAMPLE_FMT_U8:
        return put(static_cast<std::uint8_t>(std::lround(128 + 127 * value)));
    case AV_SAMPLE_FMT_S16:
        return put(static_cast<std::int16_t>(std::lround(32767 * value)));
    case AV_SAMPLE_FMT_S32:
        return put(static_cast<std::int32_t>(std::llround(2147483647.0 * value)));
    case AV_SAMPLE_FMT_S64:
        return put(static_cast<std::int64_t>(std::llround(9.2e18 * value)));
    case AV_SAMPLE_FMT_FLT:
        return put(static_cast<float>(value));
    default:
        return put(value);
    }
}

FrameHandle sound(AVSampleFormat format, int rate, const AVChannelLayout& layout, int count,
                  const Signal& signal) {
    FrameHandle frame = makeFrame();
    frame->format = format;
    frame->sample_rate = rate;
    frame->nb_samples = count;
    EXPECT_GE(av_channel_layout_copy(&frame->ch_layout, &layout), 0);
    EXPECT_GE(av_frame_get_buffer(frame.get(), 0), 0);
    const int channels = layout.nb_channels;
    const int bytes = av_get_bytes_per_sample(format);
    for (int channel = 0; channel < channels; ++channel) {
        for (int i = 0; i < count; ++i) {
            std::uint8_t* target = av_sample_fmt_is_planar(format)
                                       ? frame->extended_data[channel] + i * bytes
                                       : frame->extended_data[0] + (i * channels + channel) * bytes;
            store(target, format, signal(channel, i));
        }
    }
    return frame;
}

AVChannelLayout layoutNamed(const char* name) {
    AVChannelLayout layout{};
    EXPECT_EQ(av_channel_layout_from_string(&layout, name), 0) << name;
    return layout;
}

AVChannelLayout unknownLayout(int channels) {
    AVChannelLayout layout{};
    layout.order = AV_CHANNEL_ORDER_UNSPEC;
    layout.nb_channels = channels;
    return layout;
}

/// A sine of its own frequency for each channel, so that channels do not add up in step.
double sine(int channel, int index) {
    return std::sin(2 * std::numbers::pi * (500 + 130 * channel) * index / sampleRate);
}

/// Everything that comes out for these frames, by channel.
std::vector<std::vector<float>> mixed(int channels, const std::vector<const AVFrame*>& frames) {
    AudioMixer mixer(sampleRate, channels);
    std::vector<std::vector<float>> result(static_cast<std::size_t>(channels));
    const auto append = [&](const Result<FrameHandle>& piece) {
        ASSERT_TRUE(piece) << piece.error().text;
        if (!*piece)
            return;
        const AVFrame& frame = **piece;
        ASSERT_EQ(frame.format, AV_SAMPLE_FMT_FLTP);
        ASSERT_EQ(frame.sample_rate, sampleRate);
        ASSERT_EQ(frame.ch_layout.nb_channels, channels);
        for (int channel = 0; channel < channels; ++channel) {
            const auto* samples = reinterpret_cast<const float*>(frame.extended_data[channel]);
            auto& all = result[static_cast<std::size_t>(channel)];
            all.insert(all.end(), samples, samples + frame.nb_samples);
        }
    };
    for (const AVFrame* frame : frames)
        append(mixer.mix(*frame));
    append(mixer.flush());
    return result;
}

double power(const std::vector<float>& samples) {
    double sum = 0;
    for (const float sample : samples)
        sum += static_cast<double>(sample) * sample;
    return sum / static_cast<double>(samples.size());
}

float highest(const std::vector<float>& samples) {
    float peak = 0;
    for (const float sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

} // namespace

TEST(AudioMixer, EverySampleFormatKeepsItsLevel) {
    const AVChannelLayout stereo = layoutNamed("stereo");
    for (int format = 0; format < AV_SAMPLE_FMT_NB; ++format) {
        const auto frame = sound(static_cast<AVSampleFormat>(format), sampleRate, stereo, 1000,
                                 [](int channel, int i) { return 0.5 * sine(channel, i); });
        const auto result = mixed(2, {frame.get()});
        ASSERT_EQ(result[0].size(), 1000U);
        for (int channel = 0; channel < 2; ++channel) {
            for (int i = 0; i < 1000; ++i)
                ASSERT_NEAR(result[static_cast<std::size_t>(channel)][static_cast<std::size_t>(i)],
                            0.5 * sine(channel, i), 0.01)
                    << av_get_sample_fmt_name(static_cast<AVSampleFormat>(format));
        }
    }
}

TEST(AudioMixer, MonoAndStereoPassBitByBitEvenWhenLoud) {
    for (const char* name : {"mono", "stereo"}) {
        const AVChannelLayout layout = layoutNamed(name);
        const auto frame = sound(AV_SAMPLE_FMT_FLTP, sampleRate, layout, 3000,
                                 [](int channel, int i) { return 1.2 * sine(channel, i); });
        const auto result = mixed(layout.nb_channels, {frame.get()});
        for (int channel = 0; channel < layout.nb_channels; ++channel) {
            const auto* samples = reinterpret_cast<const float*>(frame->extended_data[channel]);
            EXPECT_EQ(result[static_cast<std::size_t>(channel)], std::vector<float>(samples, samples + 3000))
                << name;
        }
    }
}

TEST(AudioMixer, TheLoudnessSurvivesTheDownmix) {
    struct Case {
        const char* layout;
        std::vector<AVChannel> sounding;
        int channels;
        double decibels; ///< of all that comes out against all that went in
    };
    constexpr double surround = -3.01;
    const std::vector<Case> cases = {
        {"5.1", {AV_CHAN_FRONT_CENTER}, 2, 0},
        {"5.1", {AV_CHAN_FRONT_LEFT}, 2, 0},
        {"5.1", {AV_CHAN_FRONT_LEFT, AV_CHAN_FRONT_RIGHT, AV_CHAN_FRONT_CENTER}, 2, 0},
        {"5.1", {AV_CHAN_BACK_LEFT}, 2, surround},
        {"5.1(side)", {AV_CHAN_SIDE_RIGHT}, 2, surround},
        {"5.1",
         {AV_CHAN_FRONT_LEFT, AV_CHAN_FRONT_RIGHT, AV_CHAN_FRONT_CENTER, AV_CHAN_BACK_LEFT,
          AV_CHAN_BACK_RIGHT},
         2,
         -0.97},
        {"7.1", {AV_CHAN_FRONT_CENTER}, 2, 0},
        {"7.1", {AV_CHAN_SIDE_LEFT, AV_CHAN_BACK_RIGHT}, 2, surround},
        {"7.1(wide)", {AV_CHAN_FRONT_LEFT_OF_CENTER}, 2, 0},
        {"6.1", {AV_CHAN_BACK_CENTER}, 2, surround},
        {"5.1", {AV_CHAN_FRONT_CENTER}, 1, 0},
        {"stereo", {AV_CHAN_FRONT_LEFT, AV_CHAN_FRONT_RIGHT}, 1, surround},
        {"mono", {AV_CHAN_FRONT_CENTER}, 2, 0},
    };
    for (const Case& test : cases) {
        const AVChannelLayout layout = layoutNamed(test.layout);
        const auto frame = sound(AV_SAMPLE_FMT_FLTP, sampleRate, layout, sampleRate, [&](int channel, int i) {
            const AVChannel place =
                av_channel_layout_channel_from_index(&layout, static_cast<unsigned>(channel));
            const bool sounds = std::count(test.sounding.begin(), test.sounding.end(), place) > 0;
            return sounds ? 0.2 * sine(channel, i) : 0.0;
        });
        double result = 0;
        for (const auto& channel : mixed(test.channels, {frame.get()}))
            result += power(channel);
        const double source = 0.02 * static_cast<double>(test.sounding.size());
        EXPECT_NEAR(10 * std::log10(result / source), test.decibels, 0.05)
            << test.layout << " to " << test.channels << ", " << test.sounding.size() << " sounding";
    }
}

TEST(AudioMixer, TheLowFrequencyChannelIsLeftOut) {
    const auto frame = sound(AV_SAMPLE_FMT_FLTP, sampleRate, layoutNamed("5.1"), 4800,
                             [](int channel, int i) { return channel == 3 ? sine(channel, i) : 0.0; });
    EXPECT_EQ(highest(mixed(2, {frame.get()})[0]), 0);
}

TEST(AudioMixer, ADownmixNeverClips) {
    const auto frame =
        sound(AV_SAMPLE_FMT_S16, sampleRate, layoutNamed("7.1"), 1024, [](int, int i) { return sine(0, i); });
    const auto result = mixed(2, std::vector<const AVFrame*>(40, frame.get()));
    for (const auto& channel : result) {
        EXPECT_EQ(channel.size(), 40U * 1024);
        EXPECT_LE(highest(channel), Limiter::ceiling);
        EXPECT_GE(highest(channel), 0.9F * Limiter::ceiling);
    }
}

TEST(AudioMixer, ADownmixWithoutPeaksIsNeitherDelayedNorChanged) {
    const auto frame = sound(AV_SAMPLE_FMT_FLTP, sampleRate, layoutNamed("5.1"), 5000,
                             [](int channel, int i) { return channel == 0 ? 0.9 * sine(0, i) : 0.0; });
    const auto* samples = reinterpret_cast<const float*>(frame->extended_data[0]);
    EXPECT_EQ(mixed(2, {frame.get()})[0], std::vector<float>(samples, samples + 5000));
}

TEST(AudioMixer, AsManySamplesComeOutAsWentIn) {
    struct Case {
        int rate;
        const char* layout;
        int count;
    };
    const std::vector<Case> cases = {
        {1000, "mono", 500},       {8000, "5.1", 8000},    {44100, "stereo", 44100},
        {48000, "5.1", 10},        {48000, "7.1", 48000},  {44100, "stereo", 100},
        {192000, "stereo", 96000}, {768000, "5.1", 76800}, {96000, "5.1(side)", 48000}};
    for (const Case& test : cases) {
        const auto frame = sound(AV_SAMPLE_FMT_S16, test.rate, layoutNamed(test.layout), test.count,
                                 [](int channel, int i) { return 0.3 * sine(channel, i); });
        const auto result = mixed(2, {frame.get()});
        EXPECT_NEAR(static_cast<double>(result[1].size()),
                    static_cast<double>(test.count) * sampleRate / test.rate, test.rate == sampleRate ? 0 : 1)
            << test.rate << " " << test.layout;
    }
}

TEST(AudioMixer, SoundMayChangeItsKindOnTheWay) {
    struct Kind {
        AVSampleFormat format;
        int rate;
        const char* layout;
    };
    const std::vector<Kind> kinds = {{AV_SAMPLE_FMT_FLTP, 48000, "5.1"},
                                     {AV_SAMPLE_FMT_S16, 48000, "stereo"},
                                     {AV_SAMPLE_FMT_U8, 24000, "mono"},
                                     {AV_SAMPLE_FMT_FLTP, 24000, "7.1"}};
    std::vector<FrameHandle> frames;
    std::vector<const AVFrame*> pointers;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const double level = 0.1 * static_cast<double>(i + 1);
        // Only the front left speaks, so that the level is that of the left side, mono apart.
        frames.push_back(sound(kinds[i].format, kinds[i].rate, layoutNamed(kinds[i].layout),
                               kinds[i].rate / 10,
                               [level](int channel, int) { return channel == 0 ? level : 0.0; }));
        pointers.push_back(frames.back().get());
    }
    const std::vector<float> left = mixed(2, pointers)[0];
    ASSERT_NEAR(static_cast<double>(left.size()), 4 * 4800, 4);
    const std::array<double, 4> levels = {0.1, 0.2, 0.3 * std::numbers::sqrt2 / 2, 0.4};
    for (std::size_t i = 0; i < levels.size(); ++i)
        EXPECT_NEAR(left[i * 4800 + 2400], levels[i], 0.005) << "piece " << i;
}

TEST(AudioMixer, ChannelsOfUnknownPlaceAreFoldedAlike) {
    const auto frame = sound(AV_SAMPLE_FMT_FLTP, sampleRate, unknownLayout(9), 4800,
                             [](int channel, int i) { return channel == 7 ? 0.5 * sine(channel, i) : 0.0; });
    const auto result = mixed(2, {frame.get()});
    EXPECT_EQ(result[0], result[1]);
    EXPECT_NEAR(power(result[0]) + power(result[1]), 0.125, 0.001);
}

TEST(AudioMixer, UnknownLayoutsOfAUsualSizeAreTheUsualOnes) {
    const auto frame = sound(AV_SAMPLE_FMT_FLTP, sampleRate, unknownLayout(6), 4800,
                             [](int channel, int i) { return channel == 0 ? 0.5 * sine(channel, i) : 0.0; });
    const auto result = mixed(2, {frame.get()});
    EXPECT_NEAR(power(result[0]), 0.125, 0.001);
    EXPECT_EQ(highest(result[1]), 0);
}

TEST(AudioMixer, WhatIsNoNumberBecomesSilence) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto frame = sound(AV_SAMPLE_FMT_DBL, sampleRate, layoutNamed("stereo"), 300, [nan](int, int i) {
        return i == 100 ? nan : i == 200 ? 1e30 : 0.25;
    });
    const auto left = mixed(2, {frame.get()})[0];
    EXPECT_EQ(left[99], 0.25F);
    EXPECT_EQ(left[100], 0);
    EXPECT_EQ(left[200], 0);
    EXPECT_EQ(left[201], 0.25F);
}

TEST(AudioMixer, AnImpossibleFrameIsRefusedAndTheNextOneTaken) {
    const auto good = sound(AV_SAMPLE_FMT_FLTP, sampleRate, layoutNamed("stereo"), 100, sine);
    const auto tooManyChannels = sound(AV_SAMPLE_FMT_FLTP, sampleRate, unknownLayout(65), 100, sine);
    const auto tooFast =
        sound(AV_SAMPLE_FMT_FLTP, AudioMixer::maximumSampleRate + 1, layoutNamed("mono"), 100, sine);
    const auto noRate = sound(AV_SAMPLE_FMT_FLTP, 0, layoutNamed("mono"), 100, sine);
    AudioMixer mixer(sampleRate, 2);
    const auto empty = makeFrame();
    for (const AVFrame* bad : {empty.get(), tooManyChannels.get(), tooFast.get(), noRate.get()})
        EXPECT_FALSE(mixer.mix(*bad));
    const auto result = mixer.mix(*good);
    ASSERT_TRUE(result && *result);
    EXPECT_EQ((*result)->nb_samples, 100);
}

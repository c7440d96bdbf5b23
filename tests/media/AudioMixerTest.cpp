// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/AudioMixer.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <string>

extern "C" {
#include <libavutil/channel_layout.h>
}

using namespace reelsmith::media;

namespace {

constexpr int sampleRate = 48000;

/// The sample number `index` of a channel, -1…1.
using Signal = std::function<double(int channel, int index)>;
using Channels = std::vector<std::vector<float>>;

/// `layout` as av_channel_layout_from_string() takes it.
FrameHandle sound(const char* layout, int count, const Signal& signal, int rate = sampleRate,
                  AVSampleFormat format = AV_SAMPLE_FMT_FLTP) {
    FrameHandle frame = makeFrame();
    frame->format = format;
    frame->sample_rate = rate;
    frame->nb_samples = count;
    EXPECT_EQ(av_channel_layout_from_string(&frame->ch_layout, layout), 0) << layout;
    EXPECT_GE(av_frame_get_buffer(frame.get(), 0), 0);
    for (int channel = 0; channel < frame->ch_layout.nb_channels; ++channel) {
        std::uint8_t* samples = frame->extended_data[channel];
        for (int i = 0; i < count; ++i) {
            if (format == AV_SAMPLE_FMT_S16P)
                reinterpret_cast<std::int16_t*>(samples)[i] =
                    static_cast<std::int16_t>(std::lround(signal(channel, i) * 32767));
            else
                reinterpret_cast<float*>(samples)[i] = static_cast<float>(signal(channel, i));
        }
    }
    return frame;
}

/// A sine of its own frequency for each channel, so that channels do not add up in step.
double sine(int channel, int index) {
    return std::sin(2 * std::numbers::pi * (500 + 130 * channel) * index / sampleRate);
}

/// Everything that comes out for these frames, by channel.
Channels mixed(int channels, const std::vector<const AVFrame*>& frames) {
    AudioMixer mixer(sampleRate, channels);
    Channels result(static_cast<std::size_t>(channels));
    const auto append = [&](const Result<FrameHandle>& piece) {
        ASSERT_TRUE(piece) << piece.error().text;
        if (!*piece)
            return;
        const AVFrame& frame = **piece;
        ASSERT_EQ(frame.format, AV_SAMPLE_FMT_FLTP);
        ASSERT_EQ(frame.sample_rate, sampleRate);
        ASSERT_EQ(frame.ch_layout.nb_channels, channels);
        for (std::size_t channel = 0; channel < result.size(); ++channel) {
            const auto* samples = reinterpret_cast<const float*>(frame.extended_data[channel]);
            result[channel].insert(result[channel].end(), samples, samples + frame.nb_samples);
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

} // namespace

TEST(AudioMixer, WhatNeedsNoFoldingOrLimitingPassesBitByBit) {
    struct {
        const char* layout;
        int channels;
        double level;
    } const cases[] = {{"mono", 1, 1.2}, {"stereo", 2, 1.2}, {"5.1", 2, 0.9}};
    for (const auto& test : cases) {
        const auto frame = sound(test.layout, 5000, [&](int channel, int i) {
            return channel < 2 ? test.level * sine(channel, i) : 0;
        });
        Channels expected;
        for (int channel = 0; channel < test.channels; ++channel) {
            const auto* samples = reinterpret_cast<const float*>(frame->extended_data[channel]);
            expected.emplace_back(samples, samples + 5000);
        }
        EXPECT_EQ(mixed(test.channels, {frame.get()}), expected) << test.layout;
    }
}

TEST(AudioMixer, TheLoudnessSurvivesTheDownmix) {
    struct {
        const char* layout;
        std::string sounding; ///< the channels' numbers: FL FR FC LFE, then those behind or beside
        double left, right;   ///< power that comes out, with 1 in each sounding channel; mono: all in `left`
        bool isMono = false;
    } const cases[] = {
        {"5.1", "2", 0.5, 0.5},    {"5.1", "0", 1, 0},
        {"5.1", "012", 1.5, 1.5},  {"5.1", "4", 0.5, 0},
        {"5.1", "3", 0, 0},        {"5.1(side)", "5", 0, 0.5},
        {"5.1", "01245", 2, 2},    {"7.1", "2", 0.5, 0.5},
        {"7.1", "56", 0.5, 0.5},   {"7.1(wide)", "6", 1, 0},
        {"6.1", "4", 0.25, 0.25},  {"mono", "0", 0.5, 0.5},
        {"6 channels", "0", 1, 0}, {"9 channels", "7", 0.5, 0.5},
        {"5.1", "2", 1, 0, true},  {"stereo", "01", 1, 0, true},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(&test - cases);
        const auto frame = sound(test.layout, sampleRate, [&](int channel, int i) {
            return test.sounding.find(static_cast<char>('0' + channel)) < 9 ? 0.2 * sine(channel, i) : 0;
        });
        const Channels result = mixed(test.isMono ? 1 : 2, {frame.get()});
        EXPECT_NEAR(power(result.front()) / 0.02, test.left, 0.008 * test.left);
        if (!test.isMono) {
            EXPECT_NEAR(power(result.back()) / 0.02, test.right, 0.008 * test.right);
        }
        const bool isAlike = test.sounding.size() == 1 && test.left == test.right;
        EXPECT_TRUE(!isAlike || result.front() == result.back());
    }
}

TEST(AudioMixer, AsManySamplesComeOutAsWentIn) {
    struct {
        int rate;
        const char* layout;
        int count;
    } const cases[] = {{1000, "mono", 500},       {8000, "5.1", 8000},    {44100, "stereo", 44100},
                       {48000, "5.1", 10},        {48000, "7.1", 48000},  {44100, "stereo", 100},
                       {192000, "stereo", 96000}, {768000, "5.1", 76800}, {96000, "5.1(side)", 48000}};
    for (const auto& test : cases) {
        const auto frame = sound(test.layout, test.count, sine, test.rate);
        EXPECT_NEAR(static_cast<double>(mixed(2, {frame.get()})[1].size()),
                    static_cast<double>(test.count) * sampleRate / test.rate, test.rate == sampleRate ? 0 : 1)
            << test.rate << " " << test.layout;
    }
}

TEST(AudioMixer, SoundMayChangeItsKindOnTheWay) {
    struct {
        AVSampleFormat format;
        int rate;
        const char* layout;
        double level, expected;
    } const kinds[] = {{AV_SAMPLE_FMT_FLTP, 48000, "5.1", 0.1, 0.1},
                       {AV_SAMPLE_FMT_S16P, 48000, "stereo", 0.2, 0.2},
                       {AV_SAMPLE_FMT_S16P, 24000, "mono", 0.3, 0.3 / std::numbers::sqrt2},
                       {AV_SAMPLE_FMT_FLTP, 24000, "7.1", 0.4, 0.4}};
    std::vector<FrameHandle> frames;
    std::vector<const AVFrame*> pointers;
    for (const auto& kind : kinds) {
        const Signal frontLeft = [&](int channel, int) { return channel == 0 ? kind.level : 0; };
        frames.push_back(sound(kind.layout, kind.rate / 10, frontLeft, kind.rate, kind.format));
        pointers.push_back(frames.back().get());
    }
    const std::vector<float> left = mixed(2, pointers)[0];
    ASSERT_NEAR(static_cast<double>(left.size()), 4 * 4800, 4);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(left[i * 4800 + 2400], kinds[i].expected, 0.005) << "piece " << i;
}

TEST(AudioMixer, WhatIsNoNumberBecomesSilence) {
    std::vector<double> samples{0.25, std::numeric_limits<double>::quiet_NaN(), 0.25, 1e30, 0.25};
    const auto frame = sound("stereo", 5, [&](int, int i) { return samples[static_cast<std::size_t>(i)]; });
    EXPECT_EQ(mixed(2, {frame.get()})[0], (std::vector<float>{0.25, 0, 0.25, 0, 0.25}));
}

TEST(AudioMixer, AnImpossibleFrameIsRefusedAndTheNextOneTaken) {
    const auto empty = makeFrame();
    const auto tooManyChannels = sound("65 channels", 100, sine);
    const auto tooFast = sound("mono", 100, sine, AudioMixer::maximumSampleRate + 1);
    const auto noRate = sound("mono", 100, sine, 0);
    AudioMixer mixer(sampleRate, 2);
    for (const AVFrame* bad : {empty.get(), tooManyChannels.get(), tooFast.get(), noRate.get()})
        EXPECT_FALSE(mixer.mix(*bad));
    const auto result = mixer.mix(*sound("stereo", 100, sine));
    ASSERT_TRUE(result && *result);
    EXPECT_EQ((*result)->nb_samples, 100);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Limiter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

using reelsmith::media::Limiter;

namespace {

constexpr int sampleRate = 48000;
using Samples = std::vector<float>;

/// Noise between -level and level, the same each time.
Samples noise(std::size_t count, float level, unsigned seed) {
    std::minstd_rand random(seed);
    std::uniform_real_distribution<float> distribution(-level, level);
    Samples samples(count);
    std::generate(samples.begin(), samples.end(), [&] { return distribution(random); });
    return samples;
}

/// What comes out, cut into pieces of different sizes on the way, the delay taken off at the front.
std::array<Samples, 2> limited(const Samples& left, const Samples& right) {
    Limiter limiter(sampleRate, 2);
    const auto delay = static_cast<std::size_t>(limiter.delaySamples());
    std::array<Samples, 2> channels{left, right};
    for (Samples& channel : channels)
        channel.resize(left.size() + delay);
    int size = 1;
    for (std::size_t start = 0; start < channels[0].size(); start += static_cast<std::size_t>(size)) {
        size = std::min(size * 3 % 4099, static_cast<int>(channels[0].size() - start));
        std::array<float*, 2> piece{channels[0].data() + start, channels[1].data() + start};
        limiter.process(piece.data(), size);
    }
    for (Samples& channel : channels)
        channel.erase(channel.begin(), channel.begin() + static_cast<std::ptrdiff_t>(delay));
    return channels;
}

} // namespace

TEST(Limiter, SoundBelowTheCeilingPassesBitByBit) {
    const Samples left = noise(20000, Limiter::ceiling, 1);
    const Samples right = noise(20000, 0.1F, 2);
    const auto result = limited(left, right);
    EXPECT_EQ(result[0], left);
    EXPECT_EQ(result[1], right);
}

TEST(Limiter, NoSampleIsAboveTheCeiling) {
    for (const float level : {1.0F, 1.5F, 4.0F, 60.0F}) {
        const auto result = limited(noise(50000, level, 3), noise(50000, 0.5F, 4));
        for (const Samples& channel : result) {
            for (const float sample : channel)
                ASSERT_LE(std::abs(sample), Limiter::ceiling) << "at level " << level;
        }
    }
}

TEST(Limiter, AllChannelsAreTurnedDownTogether) {
    const Samples left = noise(20000, 3.0F, 5);
    Samples right = left;
    for (float& sample : right)
        sample *= 0.25F;
    const auto result = limited(left, right);
    for (std::size_t i = 0; i < left.size(); ++i)
        ASSERT_NEAR(result[1][i], result[0][i] * 0.25F, 1e-6F);
}

TEST(Limiter, OnePeakIsTurnedDownSmoothlyAndLeavesTheRestAlone) {
    constexpr std::size_t peak = 10000;
    Samples steady(60000, 0.5F);
    steady[peak] = 2.0F;
    const Samples result = limited(steady, steady)[0];
    EXPECT_NEAR(result[peak], Limiter::ceiling, 1e-3F);
    for (std::size_t i = 1; i < result.size(); ++i) {
        const bool isPeak = i == peak || i == peak + 1;
        ASSERT_TRUE(isPeak || std::abs(result[i] - result[i - 1]) <= 0.5F / 200) << "a step at " << i;
    }
    constexpr std::size_t lookAhead = sampleRate / 200;
    constexpr std::size_t release = sampleRate / 4;
    EXPECT_EQ(std::count(result.begin(), result.begin() + peak - lookAhead - 1, 0.5F), peak - lookAhead - 1);
    EXPECT_EQ(std::count(result.begin() + peak + release, result.end(), 0.5F),
              static_cast<std::ptrdiff_t>(result.size() - peak - release));
}

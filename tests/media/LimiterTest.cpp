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
Samples noise(std::size_t count, float level) {
    std::minstd_rand random(1);
    std::uniform_real_distribution<float> distribution(-level, level);
    Samples samples(count);
    std::generate(samples.begin(), samples.end(), [&] { return distribution(random); });
    return samples;
}

/// What comes out of a channel and of one a quarter as loud, cut into pieces of different sizes on the way,
/// the delay taken off at the front.
std::array<Samples, 2> limited(const Samples& loud) {
    Limiter limiter(sampleRate, 2);
    const auto delay = static_cast<std::size_t>(limiter.delaySamples());
    std::array<Samples, 2> channels{loud, loud};
    for (float& sample : channels[1])
        sample *= 0.25F;
    for (Samples& channel : channels)
        channel.resize(loud.size() + delay);
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

TEST(Limiter, NoSampleIsAboveTheCeilingAndAllChannelsAreTurnedDownTogether) {
    for (const float level : {Limiter::ceiling, 1.0F, 1.5F, 4.0F, 60.0F}) {
        const Samples source = noise(50000, level);
        const auto [loud, quiet] = limited(source);
        EXPECT_EQ(loud == source, level == Limiter::ceiling) << "passes bit by bit";
        for (std::size_t i = 0; i < loud.size(); ++i) {
            ASSERT_LE(std::abs(loud[i]), Limiter::ceiling) << "at level " << level;
            ASSERT_NEAR(quiet[i], loud[i] * 0.25F, 1e-6F) << "at level " << level;
        }
    }
}

TEST(Limiter, OnePeakIsTurnedDownSmoothlyAndLeavesTheRestAlone) {
    constexpr std::size_t peak = 10000;
    Samples steady(60000, 0.5F);
    steady[peak] = 2.0F;
    const Samples result = limited(steady)[0];
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

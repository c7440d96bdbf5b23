// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

namespace reelsmith::media {

/// Keeps sound below a ceiling without clipping it: sees a peak 5 ms ahead, turns all channels down together
/// in a smooth ramp, and lets go slowly. Sound with no peak near passes bit by bit.
class Limiter {
public:
    static constexpr float ceiling = 0.98855F; ///< -0.1 dBFS

    Limiter(int sampleRate, int channels);

    /// How many samples the output lags behind the input; that many samples of silence come out first.
    int delaySamples() const { return m_delay; }

    /// Replaces `count` samples of each channel by as many limited ones. The samples must be finite.
    void process(float* const* channels, int count);

private:
    using Gain = std::uint32_t; ///< in units of 2^-30: sums of integers do not drift
    struct Needed {
        std::int64_t position;
        Gain gain;
    };

    Gain lowestNear(Gain needed);
    float smoothed(Gain gain);

    int m_delay;
    Gain m_releaseStep;
    std::int64_t m_position = 0;
    std::deque<Needed> m_lowest; ///< of the last m_delay + 1 samples, those with no lower one after them
    Gain m_held;
    std::vector<Gain> m_ramp; ///< ring of the last m_delay + 1 held gains, and their sum
    std::uint64_t m_rampSum;
    std::vector<std::vector<float>> m_delayed; ///< ring of m_delay samples for each channel
};

} // namespace reelsmith::media

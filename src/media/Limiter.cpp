// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Limiter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace reelsmith::media {

namespace {

constexpr std::uint32_t unity = 1U << 30;
constexpr int lookAheadsPerSecond = 200;
constexpr int releasesPerSecond = 4; // from silence to full level; a peak 6 dB too high is over in half of it

} // namespace

Limiter::Limiter(int sampleRate, int channels)
    : m_delay(std::max(1, sampleRate / lookAheadsPerSecond)),
      m_releaseStep(std::max(1U, unity / static_cast<unsigned>(sampleRate) * releasesPerSecond)),
      m_held(unity),
      m_ramp(static_cast<std::size_t>(m_delay) + 1, unity),
      m_rampSum(static_cast<std::uint64_t>(unity) * m_ramp.size()),
      m_delayed(static_cast<std::size_t>(channels), std::vector<float>(static_cast<std::size_t>(m_delay))) {}

/// The lowest gain that any of the last m_delay + 1 samples needs.
Limiter::Gain Limiter::lowestNear(Gain needed) {
    while (!m_lowest.empty() && m_lowest.back().gain >= needed)
        m_lowest.pop_back();
    m_lowest.push_back({m_position, needed});
    if (m_lowest.front().position < m_position - m_delay)
        m_lowest.pop_front();
    return m_lowest.front().gain;
}

/// The mean of the last m_delay + 1 gains. As each of them was low enough for the sample that leaves the
/// delay now, so is their mean.
float Limiter::smoothed(Gain gain) {
    Gain& oldest = m_ramp[static_cast<std::size_t>(m_position) % m_ramp.size()];
    m_rampSum += gain;
    m_rampSum -= std::exchange(oldest, gain);
    return static_cast<float>(static_cast<double>(m_rampSum) /
                              (static_cast<double>(unity) * static_cast<double>(m_ramp.size())));
}

void Limiter::process(float* const* channels, int count) {
    for (int i = 0; i < count; ++i, ++m_position) {
        float peak = 0;
        for (std::size_t channel = 0; channel < m_delayed.size(); ++channel)
            peak = std::max(peak, std::abs(channels[channel][i]));
        const Gain needed =
            peak > ceiling ? static_cast<Gain>(unity * static_cast<double>(ceiling / peak)) : unity;
        m_held = std::min(lowestNear(needed), std::min(unity, m_held + m_releaseStep));
        const float gain = smoothed(m_held);
        const std::size_t slot = static_cast<std::size_t>(m_position) % static_cast<std::size_t>(m_delay);
        for (std::size_t channel = 0; channel < m_delayed.size(); ++channel) {
            float& sample = channels[channel][i];
            sample = std::exchange(m_delayed[channel][slot], sample) * gain;
            // The last bit of a rounded product may still lie above.
            sample = std::clamp(sample, -ceiling, ceiling);
        }
    }
}

} // namespace reelsmith::media
